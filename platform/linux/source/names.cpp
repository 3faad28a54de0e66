#include "names.h"

namespace platform {
namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

bool IsPlain(char byte, bool first)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '_' || byte == '-' || (byte == '.' && !first);
}

}  // namespace

std::string EncodeText(std::string_view text)
{
    std::string encoded;
    for (const char byte : text)
    {
        if (IsPlain(byte, encoded.empty()))
        {
            encoded += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        encoded += '%';
        encoded += HexDigits[value >> 4U];
        encoded += HexDigits[value & 15U];
    }
    return encoded;
}

std::optional<std::string> DecodeText(std::string_view encoded)
{
    std::string text;
    for (std::size_t i = 0; i < encoded.size(); ++i)
    {
        if (encoded[i] != '%')
        {
            text += encoded[i];
            continue;
        }
        if (encoded.size() - i < 3)
        {
            return std::nullopt;
        }
        const std::size_t high = HexDigits.find(encoded[i + 1]);
        const std::size_t low = HexDigits.find(encoded[i + 2]);
        if (high == std::string_view::npos || low == std::string_view::npos)
        {
            return std::nullopt;
        }
        text += static_cast<char>(high << 4U | low);
        i += 2;
    }
    // One name, one file: another spelling of the same name is none.
    return EncodeText(text) == encoded ? std::optional(text) : std::nullopt;
}

std::optional<std::string> EncodeName(const char* name)
{
    if (name == nullptr || *name == '\0')
    {
        return std::nullopt;
    }
    std::string encoded = EncodeText(name);
    return encoded.size() <= MaxEncodedName ? std::optional(std::move(encoded)) : std::nullopt;
}

std::string ToPrintable(std::string_view text, std::size_t limit)
{
    std::string printable(text.substr(0, limit));
    for (char& byte : printable)
    {
        const auto value = static_cast<unsigned char>(byte);
        byte = value < 0x20 || value == 0x7F ? '?' : byte;
    }
    return printable;
}

}  // namespace platform
