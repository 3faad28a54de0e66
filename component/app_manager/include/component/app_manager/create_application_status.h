#pragma once

#include <memory>
#include <string_view>

#include <component/app_manager/i_application_controller.h>
#include <component/app_manager/i_application_status.h>

namespace app_manager {

/// @throws zin::CheckFailedException  for an empty name or a null controller
std::shared_ptr<IApplicationStatus> CreateApplicationStatusSPtr(
    std::string_view appName,
    std::shared_ptr<IApplicationController> controller);

}  // namespace app_manager
