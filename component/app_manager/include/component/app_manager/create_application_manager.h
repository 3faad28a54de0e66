#pragma once

#include <memory>
#include <string_view>

#include <component/app_manager/i_application_manager.h>

namespace app_manager {

/// Connects to the application manager of the terminal. Blocks for as long as there is none.
/// @param appName  under which the manager knows the application
/// @returns null after one line in the log when the connection fails; never throws
std::shared_ptr<IApplicationManager> CreateApplicationManager(std::string_view appName);

}  // namespace app_manager
