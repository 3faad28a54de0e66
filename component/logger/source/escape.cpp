#include "escape.h"

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

}  // namespace tvo::logger
