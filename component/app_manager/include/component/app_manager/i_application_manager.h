#pragma once

#include <memory>

#include <component/app_manager/i_application_commands.h>
#include <component/app_manager/i_application_controller.h>
#include <component/app_manager/i_application_watchdog.h>

namespace app_manager {

/// An application's view of the process that has started it and watches it. Any thread.
class IApplicationManager
{
public:
    virtual ~IApplicationManager() = default;

    virtual std::shared_ptr<IApplicationController> GetApplicationController() = 0;
    virtual std::shared_ptr<IApplicationCommands> GetApplicationCommands() = 0;
    virtual std::shared_ptr<IApplicationWatchdog> GetApplicationWatchdog() = 0;
};

}  // namespace app_manager
