#pragma once

namespace settings_manager::service {

/// The program: reads the options, opens the store and serves it until SIGTERM.
/// @returns the exit status
[[nodiscard]] int RunSettingsManager(int argc, const char* const* argv);

}  // namespace settings_manager::service
