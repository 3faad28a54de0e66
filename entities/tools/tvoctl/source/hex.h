#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tvoctl {

/// Two lower-case digits a byte.
std::string ToHex(std::span<const unsigned char> bytes);

/// @returns nothing for anything but pairs of digits of either case
std::optional<std::vector<unsigned char>> FromHex(std::string_view text);

}  // namespace tvoctl
