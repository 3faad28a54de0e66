#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>

#include "fuzz_target.h"
#include "input.h"

namespace fuzz {
namespace {

using nvl::IdState;
using settings_manager::meta::GetIdSpecification;

/// Reads a text that came from outside; what was read has one text, which all write.
void ReadForeign(std::string_view text)
{
    const auto [path, state] = nvl::FromString(text, GetIdSpecification());
    Require(state == IdState::Ok || path.empty(), "a bad text is no path");
    const auto written = nvl::ToString(path, GetIdSpecification());
    Require(written.second == IdState::Ok, "a path that was read has a text");
    Require(nvl::FromString(written.first, GetIdSpecification()) == std::pair(path, IdState::Ok),
            "a path that was written can be read");
    Require(settings_manager::PathToStr(path) == written.first, "all write one text");
}

/// Writes the bytes as levels that a program has put together: names, and indices of any size.
void WriteOwn(Input input)
{
    nvl::Path path;
    while (!input.HasEnded())
    {
        constexpr std::uint8_t MarkOfIndex = 0x80;
        const std::uint8_t size = input.Byte();
        if (size >= MarkOfIndex)
        {
            path.emplace_back(static_cast<unsigned long>(input.Word()) << (size % 16));
        }
        else
        {
            path.emplace_back(std::string(input.Bytes(size)));
        }
    }
    const auto [text, state] = nvl::ToString(path, GetIdSpecification());
    Require(state == IdState::Ok || text.empty(), "a bad path has no text");
    Require(state != IdState::Ok ||
                nvl::FromString(text, GetIdSpecification()) == std::pair(path, state),
            "a text is one path");
    Require(!settings_manager::PathToStr(path).empty() || path.empty(), "a log line has a text");
}

void Run(std::string_view bytes)
{
    ReadForeign(bytes);
    WriteOwn(Input(bytes));
}

std::vector<std::string> Seeds()
{
    using namespace std::string_literals;
    return {
        "",
        "/",
        "profiles/locale/007/language",
        "65535/65536",
        "18446744073709551616",
        "1a/a1/-1/+1/1.5",
        "a\\b%`'\"_",
        "a\0b/\xFF\xC3\xA9/\n"s,
        "\1a\2bc\x80\x07\0\3d/e"s,
        "\x80\xFF\xFF\x81\xFF\xFF\5early"s,
        std::string(600, 'n'),
    };
}

}  // namespace

const Target PathTexts{"path_texts", &Run, &Seeds};

}  // namespace fuzz
