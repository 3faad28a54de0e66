#pragma once

#include <cstdint>

/// The names under which the application manager is found. It is one process that publishes three
/// services of one type; a client looks the type up and asks that server for each service.
namespace app_manager::service_names {

inline constexpr char Type[] = "vx.app_manager.ApplicationManager.applicationManager";

inline constexpr char Controller[] = "app_manager.applicationController";
inline constexpr char Commands[] = "app_manager.applicationCommands";
inline constexpr char Watchdog[] = "app_manager.applicationWatchdog";

/// Interface numbers that the manager tells its clients when it lets them in.
inline constexpr std::uint16_t ControllerRiid = 1;
inline constexpr std::uint16_t CommandsRiid = 2;
inline constexpr std::uint16_t WatchdogRiid = 3;

}  // namespace app_manager::service_names
