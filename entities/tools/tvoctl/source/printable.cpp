#include "printable.h"

#include <iterator>

#include <fmt/format.h>

#include <component/plk/utf8.h>

namespace tvoctl {
namespace {

constexpr char32_t FirstOfTwoUnits = 0x10000;
constexpr char32_t Replacement = 0xFFFD;

void AppendEscape(std::string& text, char32_t codePoint)
{
    auto unit = static_cast<unsigned>(codePoint);
    if (codePoint >= FirstOfTwoUnits)
    {
        const unsigned offset = unit - FirstOfTwoUnits;
        fmt::format_to(std::back_inserter(text), "\\u{:04x}", 0xD800U + (offset >> 10U));
        unit = 0xDC00U + (offset & 0x3FFU);
    }
    fmt::format_to(std::back_inserter(text), "\\u{:04x}", unit);
}

}  // namespace

std::string Printable(std::string_view text, bool keepsLines)
{
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty())
    {
        const auto character = plk::text::ReadUtf8(text);
        const std::string_view bytes = text.substr(0, character.length);
        text.remove_prefix(character.length);
        const bool isPrintable =
            character.isValid && !plk::text::IsUnprintable(character.codePoint);
        if (isPrintable || (keepsLines && bytes == "\n"))
        {
            printable += bytes;
        }
        else
        {
            AppendEscape(printable, character.isValid ? character.codePoint : Replacement);
        }
    }
    return printable;
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty())
    {
        const auto character = plk::text::ReadUtf8(text);
        if (!character.isValid)
        {
            return false;
        }
        text.remove_prefix(character.length);
    }
    return true;
}

}  // namespace tvoctl
