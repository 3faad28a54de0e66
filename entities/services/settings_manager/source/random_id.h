#pragma once

#include <cstdint>

namespace settings_manager::service {

/// A number that nobody can guess, never 0.
/// @throws nvl::Error `InsufficientResources` when the system has no random bytes
[[nodiscard]] std::uint64_t MakeRandomId();

}  // namespace settings_manager::service
