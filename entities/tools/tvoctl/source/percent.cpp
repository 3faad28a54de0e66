#include "percent.h"

#include <cstddef>

#include <component/plk/utf8.h>

#include "hex.h"

namespace tvoctl {
namespace {

constexpr char Escape = '%';
constexpr std::size_t DigitsOfByte = 2;

}  // namespace

std::string PercentEncode(std::string_view bytes)
{
    std::string encoded;
    while (!bytes.empty())
    {
        const auto character = plk::text::ReadUtf8(bytes);
        if (bytes[0] == Escape || !character.isValid)
        {
            const auto byte = static_cast<unsigned char>(bytes[0]);
            encoded += Escape + ToHex({&byte, 1});
        }
        else
        {
            encoded += bytes.substr(0, character.length);
        }
        bytes.remove_prefix(character.length);
    }
    return encoded;
}

std::optional<std::string> PercentDecode(std::string_view encoded)
{
    std::string bytes;
    while (!encoded.empty())
    {
        const bool isEscape = encoded[0] == Escape;
        const auto digits = encoded.substr(1, isEscape ? DigitsOfByte : 0);
        const auto byte = FromHex(digits);
        if (isEscape && (!byte || byte->empty()))
        {
            return std::nullopt;
        }
        bytes += isEscape ? static_cast<char>(byte->front()) : encoded[0];
        encoded.remove_prefix(1 + digits.size());
    }
    return bytes;
}

}  // namespace tvoctl
