#pragma once

#include <cstddef>
#include <string>

namespace cert_approve {

/// Room for any certificate that means well, and an end for what never ends.
inline constexpr std::size_t MaxInputBytes = std::size_t{1024} * 1024;

/// Reads a file, or standard input for "-".
/// @throws Failure  BadInput when it cannot be read or is larger than `MaxInputBytes`
std::string ReadInput(const std::string& path);

}  // namespace cert_approve
