#pragma once

#include <cstddef>
#include <string_view>

namespace plk::text {

/// The first character of a UTF-8 text.
struct Utf8Character
{
    char32_t codePoint = 0;
    std::size_t length = 0;  ///< in bytes; 1 for a byte that belongs to no character
    bool isValid = false;
};

/// Reads one character by the rules of RFC 3629: overlong forms, surrogates and values above
/// U+10FFFF are not valid. Does not depend on the locale.
/// @param text  not empty
[[nodiscard]] Utf8Character ReadUtf8(std::string_view text) noexcept;

/// Whether a character can move, hide or reorder what stands around it instead of showing itself:
/// control characters, line and paragraph separators, bidirectional and other invisible formats.
[[nodiscard]] bool IsUnprintable(char32_t codePoint) noexcept;

}  // namespace plk::text
