#pragma once

#include <cstdint>

/// How much a message of the manager's interfaces may carry, in bytes.
namespace app_manager::limits {

inline constexpr std::uint32_t Text = 128;  ///< a name or a text, without a terminator

/// Arenas of requests with a name alone, and with a name and two texts. No response has one.
inline constexpr std::uint32_t NameArena = Text;
inline constexpr std::uint32_t ErrorArena = 3 * Text;

}  // namespace app_manager::limits
