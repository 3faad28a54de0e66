#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tvoctl {

/// Any bytes as UTF-8: each "%" and each byte that belongs to no character stands as "%" and two
/// hexadecimal digits.
std::string PercentEncode(std::string_view bytes);

/// @returns nothing for a "%" without its two digits
std::optional<std::string> PercentDecode(std::string_view encoded);

}  // namespace tvoctl
