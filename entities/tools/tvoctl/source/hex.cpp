#include "hex.h"

#include <charconv>

namespace tvoctl {

std::string ToHex(std::span<const unsigned char> bytes)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const unsigned char byte : bytes)
    {
        text += Digits[byte / 16];
        text += Digits[byte % 16];
    }
    return text;
}

std::optional<std::vector<unsigned char>> FromHex(std::string_view text)
{
    std::vector<unsigned char> bytes(text.size() / 2);
    if (bytes.size() * 2 != text.size())
    {
        return std::nullopt;
    }
    const char* pair = text.data();
    for (unsigned char& byte : bytes)
    {
        const char* const end = pair + 2;
        if (std::from_chars(pair, end, byte, 16).ptr != end)
        {
            return std::nullopt;
        }
        pair = end;
    }
    return bytes;
}

}  // namespace tvoctl
