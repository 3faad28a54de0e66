#include "escape.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include <fmt/format.h>

#include <component/plk/utf8.h>

namespace tvo::logger {
namespace {

void AppendEscape(std::string& line, const plk::text::Utf8Character& character)
{
    switch (character.codePoint)
    {
        case '\n':
            line += "\\n";
            return;
        case '\r':
            line += "\\r";
            return;
        case '\t':
            line += "\\t";
            return;
        default:
            break;
    }
    const auto value = static_cast<unsigned>(character.codePoint);
    if (!character.isValid || value < 0x80)
    {
        fmt::format_to(std::back_inserter(line), "\\x{:02x}", value);
    }
    else
    {
        fmt::format_to(std::back_inserter(line), "\\u{{{:x}}}", value);
    }
}

/// Looks at eight bytes at once. The highest bit of a byte ends up set when it is below the blank,
/// or DEL and above.
std::uint64_t MarkUnplain(const char* bytes)
{
    constexpr std::uint64_t Blanks = 0x2020202020202020U;
    constexpr std::uint64_t Ones = 0x0101010101010101U;
    constexpr std::uint64_t Highest = 0x8080808080808080U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return ((word - Blanks) | (word + Ones) | word) & Highest;
}

}  // namespace

std::string EscapeForLine(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    while (!text.empty())
    {
        const plk::text::Utf8Character character = plk::text::ReadUtf8(text);
        if (character.isValid && !plk::text::IsUnprintable(character.codePoint))
        {
            line.append(text.substr(0, character.length));
        }
        else
        {
            AppendEscape(line, character);
        }
        text.remove_prefix(character.length);
    }
    return line;
}

bool IsPlainAscii(std::string_view text)
{
    constexpr std::size_t Step = sizeof(std::uint64_t);
    if (text.size() < Step)
    {
        return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
    }
    std::uint64_t marks = 0;
    const char* const last = text.data() + text.size() - Step;
    for (const char* at = text.data(); at < last; at += Step)
    {
        marks |= MarkUnplain(at);
    }
    // The last step looks at some bytes again, so that none are left over.
    return (marks | MarkUnplain(last)) == 0;
}

}  // namespace tvo::logger
