#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace tvoctl {

/// Room for hundreds of thousands of settings, and an end for what never ends.
inline constexpr std::size_t MaxInputBytes = std::size_t{256} * 1024 * 1024;

/// Reads a file, or the stream for "-".
/// @throws Failure  BadUse when it cannot be read or is larger than `MaxInputBytes`
std::string ReadInput(const std::string& path, std::istream& standardInput);

}  // namespace tvoctl
