#include <algorithm>

#include <lock_file.h>

#include "fuzz_target.h"

namespace fuzz {
namespace {

using platform::LockFileLine;
using Kind = LockFileLine::Kind;

bool AreEqual(const LockFileLine& left, const LockFileLine& right)
{
    return left.kind == right.kind && left.number == right.number && left.first == right.first &&
           left.second == right.second;
}

bool AreEqual(const std::vector<LockFileLine>& left, const std::vector<LockFileLine>& right)
{
    return std::equal(left.begin(),
                      left.end(),
                      right.begin(),
                      right.end(),
                      [](const auto& one, const auto& other) { return AreEqual(one, other); });
}

/// The bytes as a lock file that somebody has filled.
void ReadForeign(std::string_view text)
{
    const auto lines = platform::ParseLines(text);
    Require(static_cast<std::ptrdiff_t>(lines.size()) <= std::count(text.begin(), text.end(), '\n'),
            "a line ends");
    std::string written;
    for (const LockFileLine& line : lines)
    {
        Require(line.kind != Kind::Endpoint || line.number < 0xFFFF, "a number is an endpoint's");
        Require(line.kind != Kind::Service ||
                    text.find(platform::FormatLine(line)) != std::string_view::npos,
                "a name has one spelling");
        written += platform::FormatLine(line);
    }
    Require(AreEqual(platform::ParseLines(written), lines), "what was read can be written");
}

/// The bytes as names that a program offers.
void WriteOwn(std::string_view bytes)
{
    const std::size_t half = bytes.size() / 2;
    const std::string first(bytes.substr(0, half));
    const std::string second(bytes.substr(half));
    const std::vector<LockFileLine> lines{{Kind::Process, 0xFFFFFFFF, {}, {}},
                                          {Kind::Service, 0, first, second},
                                          {Kind::Endpoint, 0xFFFE, second, first}};
    std::string text;
    for (const LockFileLine& line : lines)
    {
        text += platform::FormatLine(line);
    }
    Require(AreEqual(platform::ParseLines(text), lines), "every name can be offered");
}

void Run(std::string_view bytes)
{
    ReadForeign(bytes);
    WriteOwn(bytes);
}

std::vector<std::string> Seeds()
{
    const std::string whole =
        "process 4711\nendpoint 1 component.Endpoint vx.Interface\nservice vx.Interface "
        "one%20two\n";
    return {
        "",
        whole,
        whole.substr(0, whole.size() - 1),
        whole + whole,
        "\n\n \nprocess \nprocess -1\nprocess 4294967296\nprocess 007\nprocess 1 2\n",
        "endpoint 65534 a b\nendpoint 65535 a b\nendpoint 1 a\nendpoint 1 a b c\n",
        "service %2E%00 %FF\nservice . a\nservice %4 a\nservice %61 b\nservice %e9 a\n",
        "service  \nservice a \nservice  b\nservice a b\r\nSERVICE a b\n",
        std::string("service a\0b c\n", 14),
    };
}

}  // namespace

const Target LockFiles{"lock_files", &Run, &Seeds};

}  // namespace fuzz
