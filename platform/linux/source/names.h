#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What a file name may hold of a percent-encoded name: behind "/proc/self/fd/12345/" and before
/// ".sock" the path still fits a socket's address.
inline constexpr std::size_t MaxEncodedName = 80;

/// Letters, digits and "_-." stay (a dot not at the front); every other byte becomes "%XX".
std::string EncodeText(std::string_view text);

/// @returns nothing for a text that `EncodeText` does not make
std::optional<std::string> DecodeText(std::string_view encoded);

/// The file name of a server or connection.
/// @returns nothing for null, an empty name and one beyond `MaxEncodedName`
std::optional<std::string> EncodeName(const char* name);

/// Cuts the text to so many bytes and replaces control characters, so that it fits a log line.
std::string ToPrintable(std::string_view text, std::size_t limit);

}  // namespace platform
