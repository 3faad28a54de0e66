#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include <component/app_manager/i_application_manager.h>
#include <shared/common/utils/cancellation_token.h>
#include <shared/common_utils/app_utils/watchdog/i_application_watchdog.h>

namespace common_utils::app_utils::watchdog {

/// Pings the manager from a thread of its own, so that whoever notifies never waits for it.
///
/// At most one ping is under way: what is notified during a slow one makes one further ping,
/// however often it was. The manager's result is nobody's concern; a manager that is gone ends the
/// process.
class ApplicationWatchdog final : public IApplicationWatchdog
{
public:
    /// @throws zin::CheckFailedException  for a null watchdog
    ApplicationWatchdog(std::string_view appName,
                        std::shared_ptr<::app_manager::IApplicationWatchdog> watchdog);

    /// Waits for a ping that is under way; makes no further one.
    ~ApplicationWatchdog() override;

    ApplicationWatchdog(const ApplicationWatchdog&) = delete;
    ApplicationWatchdog& operator=(const ApplicationWatchdog&) = delete;

    void Notify() override;

private:
    void Worker();

    std::string m_appName;
    std::shared_ptr<::app_manager::IApplicationWatchdog> m_watchdog;
    ::common::utils::CancellationToken m_token;
    std::thread m_thread;
};

/// Makes the watchdog of an application from the manager's.
/// @throws zin::CheckFailedException  for a null manager, or one without a watchdog
std::unique_ptr<IApplicationWatchdog> CreateWatchdog(
    std::string_view appName,
    const std::shared_ptr<::app_manager::IApplicationManager>& manager);

}  // namespace common_utils::app_utils::watchdog
