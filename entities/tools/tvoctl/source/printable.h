#pragma once

#include <string>
#include <string_view>

namespace tvoctl {

/// A text that a terminal shows as it is: each character that could move, hide or reorder others
/// stands as its JSON escape. In a JSON text that has line ends outside of its strings only, the
/// meaning stays.
/// @param keepsLines  whether line ends are left alone
std::string Printable(std::string_view text, bool keepsLines = false);

/// Whether all bytes belong to characters of UTF-8.
bool IsUtf8(std::string_view text);

}  // namespace tvoctl
