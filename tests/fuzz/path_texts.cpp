#include <charconv>

#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>

#include "fuzz_target.h"
#include "input.h"

namespace fuzz {
namespace {

using nvl::IdState;
using settings_manager::meta::GetIdSpecification;

std::pair<nvl::Path, IdState> Read(std::string_view text)
{
    return nvl::FromString(text, GetIdSpecification());
}

std::pair<std::string, IdState> Write(const nvl::Path& path)
{
    return nvl::ToString(path, GetIdSpecification());
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// What has to come of a text without a separator; a text has fewer rules than a path.
IdState StateOf(std::string_view level, bool isText)
{
    if (level.empty())
    {
        return isText ? IdState::EmptyLevel : IdState::EmptyName;
    }
    if (!IsDigit(level[0]))
    {
        const bool isBad = level.find_first_of(GetIdSpecification().chars) != level.npos;
        return isBad ? IdState::ReservedCharacter : IdState::Ok;
    }
    if (!isText)
    {
        return IdState::DigitAtStart;
    }
    if (level.find_first_not_of("0123456789") != level.npos)
    {
        return IdState::ReservedCharacter;
    }
    const auto digits = level.substr(std::min(level.find_first_not_of('0'), level.size()));
    const bool isNumber =
        digits.size() < 20 || (digits.size() == 20 && digits <= "18446744073709551615");
    return !isNumber                                                       ? IdState::BadNumber
           : digits.size() > 5 || (digits.size() == 5 && digits > "65535") ? IdState::IndexTooLarge
                                                                           : IdState::Ok;
}

void RequireRoundTrip(const nvl::Path& path)
{
    const auto [text, state] = Write(path);
    Require(state == IdState::Ok, "a path that was read has a text");
    Require(Read(text) == std::pair(path, IdState::Ok), "a path that was written can be read");
    Require(settings_manager::PathToStr(path) == text, "all write one text");
}

void ReadForeign(std::string_view text)
{
    const auto [path, state] = Read(text);
    Require(state == IdState::Ok || path.empty(), "a bad text is no path");
    RequireRoundTrip(path);
    Require(nvl::FromString(text, {}).second == IdState::NoSpecification, "there are rules");

    nvl::Path levels;
    IdState expected = IdState::Ok;
    for (std::string_view rest = text; !rest.empty() && expected == IdState::Ok;)
    {
        const std::string_view level = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(level.size() + 1, rest.size()));
        expected = StateOf(level, true);
        const auto one = Read(level);
        Require(level.empty() || one.second == expected, "a level has its state");
        levels.insert(levels.end(), one.first.begin(), one.first.end());
    }
    Require(state == expected, "the first bad level decides");
    Require(state != IdState::Ok || path == levels, "levels do not depend on each other");
}

/// The bytes as levels that a program has put together.
void WriteOwn(Input input)
{
    nvl::Path path;
    IdState expected = IdState::Ok;
    while (!input.HasEnded())
    {
        const std::uint8_t size = input.Byte();
        constexpr std::uint8_t MarkOfIndex = 0x80;
        IdState state = IdState::Ok;
        if (size >= MarkOfIndex)
        {
            const unsigned long index = static_cast<unsigned long>(input.Word()) << (size % 16);
            path.emplace_back(index);
            state = index > 0xFFFF ? IdState::IndexTooLarge : IdState::Ok;
        }
        else
        {
            path.emplace_back(std::string(input.Bytes(size)));
            state = StateOf(std::get<std::string>(path.back()), false);
        }
        expected = expected == IdState::Ok ? state : expected;
    }
    const auto [text, state] = Write(path);
    Require(state == expected, "the first bad level decides what a path is");
    Require(state == IdState::Ok || text.empty(), "a bad path has no text");
    Require(state != IdState::Ok || Read(text) == std::pair(path, state), "a text is one path");
    Require(!settings_manager::PathToStr(path).empty() || path.empty(), "a log line has a text");
    Require(nvl::ToString(path, {}).second == IdState::NoSpecification, "there are rules");
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
        "a/b//c",
        "profiles/locale/007/language",
        "65535/65536",
        "18446744073709551615/",
        "18446744073709551616",
        "00000000000000000000000000065535/x/",
        "1a/a1/-1/+1/1.5",
        "a%b",
        "a b",
        "a\\b",
        "`",
        "'",
        "\"",
        "_",
        "a\0b/\xFF\xC3\xA9/\n"s,
        "\x01"
        "a\x02"
        "bc\x80\x07\x00\x03"
        "d/e"s,
        "\x01"
        "7\x00\x01"
        "a"s,
        "\x80\xFF\xFF\x81\xFF\xFF\x05"
        "early"s,
        std::string(600, 'n'),
    };
}

}  // namespace

const Target PathTexts{"path_texts", &Run, &Seeds};

}  // namespace fuzz
