#pragma once

#include <cstdint>

namespace app_manager {

/// What the manager wants of an application. Values from 0 to 65535 are states of the application's
/// own.
namespace commands {

inline constexpr std::int64_t ShowWindow = -1;
inline constexpr std::int64_t HideWindow = -2;
inline constexpr std::int64_t CloseWindow = -3;  ///< and end the application

}  // namespace commands

/// What an application reports with `StateChanged`. Nothing to do with the commands of the same
/// number.
namespace states {

inline constexpr std::int64_t ReadyToShutdown = -2;

}  // namespace states

/// Bits of the update handle.
namespace update_events {

inline constexpr std::uint32_t Closed = 0x00000001;  ///< the manager has gone
inline constexpr std::uint32_t CommandChanged = 0x00010000;

}  // namespace update_events

}  // namespace app_manager
