#pragma once

#include <memory>
#include <string_view>

#include <component/app_manager/i_application_manager.h>
#include <shared/common/timer/timer.h>
#include <shared/common_utils/app_utils/watchdog/i_application_watchdog.h>

namespace vdi::common_utils_ui::watchdog {

/// Notifies a watchdog once a second for as long as the event loop turns. A tick does nothing but
/// wake the watchdog's own thread, so the manager that is pinged never holds up the UI, and a UI
/// that stands still is seen there as pings that do not come.
/// @note thread: the Qt thread, from the construction to the destruction
class ApplicationWatchdog final
{
public:
    /// Starts the ticks; the first comes a second after the event loop has begun to turn.
    /// @throws zin::CheckFailedException  a collaborator is missing or makes no timer
    ApplicationWatchdog(
        std::shared_ptr<::timer::ITimerFactory> timerFactory,
        std::unique_ptr<::common_utils::app_utils::watchdog::IApplicationWatchdog> watchdog);

    /// Stops the ticks, then waits for a ping that is under way.
    ~ApplicationWatchdog();

    ApplicationWatchdog(const ApplicationWatchdog&) = delete;
    ApplicationWatchdog& operator=(const ApplicationWatchdog&) = delete;

private:
    std::shared_ptr<::timer::ITimerFactory> m_timerFactory;
    std::unique_ptr<::common_utils::app_utils::watchdog::IApplicationWatchdog> m_watchdog;
    std::unique_ptr<::timer::ITimer> m_timer;
};

/// Lets the manager hear from this application once a second, under this name.
/// @throws zin::CheckFailedException  there is no manager, or it takes no pings
std::shared_ptr<ApplicationWatchdog> CreateWatchdog(
    const std::shared_ptr<app_manager::IApplicationManager>& manager,
    const std::string_view& appName);

}  // namespace vdi::common_utils_ui::watchdog
