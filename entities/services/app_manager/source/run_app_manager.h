#pragma once

namespace app_manager::service {

/// The program: reads the options and the configuration, and runs the terminal until SIGTERM.
/// @returns the exit status
[[nodiscard]] int RunAppManager(int argc, const char* const* argv);

}  // namespace app_manager::service
