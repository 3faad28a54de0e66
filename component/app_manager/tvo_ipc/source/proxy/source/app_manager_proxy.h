#pragma once

#include <memory>

#include <component/app_manager/i_application_manager.h>

namespace app_manager::proxy {

/// Holds the three sides of the manager together.
class ApplicationManagerProxy final : public IApplicationManager
{
public:
    /// @throws zin::CheckFailedException  when one of them is null
    ApplicationManagerProxy(std::shared_ptr<IApplicationController> controller,
                            std::shared_ptr<IApplicationCommands> commands,
                            std::shared_ptr<IApplicationWatchdog> watchdog);

    std::shared_ptr<IApplicationController> GetApplicationController() override;
    std::shared_ptr<IApplicationCommands> GetApplicationCommands() override;
    std::shared_ptr<IApplicationWatchdog> GetApplicationWatchdog() override;

private:
    std::shared_ptr<IApplicationController> m_controller;
    std::shared_ptr<IApplicationCommands> m_commands;
    std::shared_ptr<IApplicationWatchdog> m_watchdog;
};

}  // namespace app_manager::proxy
