#pragma once

#include <memory>
#include <string_view>

#include <component/app_manager/i_application_manager.h>

namespace app_manager::proxy {

/// As `app_manager::CreateApplicationManager`, which is what applications call.
std::shared_ptr<IApplicationManager> CreateApplicationManager(std::string_view appName);

}  // namespace app_manager::proxy
