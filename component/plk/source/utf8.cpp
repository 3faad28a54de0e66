#include <algorithm>
#include <array>

#include <component/plk/utf8.h>

namespace plk::text {
namespace {

struct Lead
{
    unsigned char mask;   // of the bits that name the form
    unsigned char value;  // of those bits
    std::size_t length;
    char32_t smallest;  // what a shorter form could not hold
};

constexpr std::array<Lead, 4> Leads{{
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

struct Range
{
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 13> Unprintable{{
    {0x0000, 0x001F},    // C0 controls
    {0x007F, 0x009F},    // delete and C1 controls
    {0x00AD, 0x00AD},    // soft hyphen
    {0x061C, 0x061C},    // Arabic letter mark
    {0x180E, 0x180E},    // Mongolian vowel separator
    {0x200B, 0x200F},    // zero width, directional marks
    {0x2028, 0x202E},    // separators, embeddings and overrides
    {0x2060, 0x206F},    // invisible operators, isolates
    {0xD800, 0xDFFF},    // surrogates
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFF9, 0xFFFB},    // interlinear annotation
    {0xFFFE, 0xFFFF},    // not characters
    {0xE0000, 0xE007F},  // tags
}};

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

Utf8Character ReadUtf8(std::string_view text) noexcept
{
    const auto first = static_cast<unsigned char>(text.front());
    const auto lead =
        std::find_if(Leads.begin(),
                     Leads.end(),
                     [first](const Lead& row) { return (first & row.mask) == row.value; });
    const Utf8Character broken{first, 1, false};
    if (lead == Leads.end() || text.size() < lead->length)
    {
        return broken;
    }

    char32_t codePoint = first & static_cast<unsigned char>(~lead->mask);
    for (std::size_t i = 1; i < lead->length; ++i)
    {
        if (!IsContinuation(text[i]))
        {
            return broken;
        }
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
    }
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < lead->smallest || codePoint > 0x10FFFF || isSurrogate)
    {
        return broken;
    }
    return {codePoint, lead->length, true};
}

bool IsUnprintable(char32_t codePoint) noexcept
{
    return std::any_of(Unprintable.begin(),
                       Unprintable.end(),
                       [codePoint](const Range& range)
                       { return codePoint >= range.first && codePoint <= range.last; });
}

}  // namespace plk::text
