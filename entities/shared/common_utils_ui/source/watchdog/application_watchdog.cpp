#include <chrono>
#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <shared/common_utils/app_utils/watchdog/application_watchdog.h>
#include <shared/common_utils_ui/timer/qt_timer_factory.h>
#include <shared/common_utils_ui/watchdog/application_watchdog.h>

namespace vdi::common_utils_ui::watchdog {

ApplicationWatchdog::ApplicationWatchdog(
    std::shared_ptr<::timer::ITimerFactory> timerFactory,
    std::unique_ptr<::common_utils::app_utils::watchdog::IApplicationWatchdog> watchdog)
    : m_timerFactory(std::move(timerFactory)), m_watchdog(std::move(watchdog))
{
    constexpr std::chrono::milliseconds Interval{1000};

    ZIN_CHECK(m_timerFactory != nullptr, "Timer factory is null");
    ZIN_CHECK(m_watchdog != nullptr, "Watchdog is null");
    m_timer = m_timerFactory->CreateTimer();
    ZIN_CHECK(m_timer != nullptr, "Timer is null");
    m_timer->SetInterval(Interval);
    m_timer->SetCallback([notified = m_watchdog.get()] { notified->Notify(); });
    m_timer->Start();
}

ApplicationWatchdog::~ApplicationWatchdog()
{
    try
    {
        m_timer->Stop();
    }
    catch (...)
    {
        const auto [code, text] = plk::utils::ProcessException();
        TVO_LOG_CRITICAL("ApplicationWatchdog destruction failed: - [{}, {}]",
                         plk::zinx::ResultCodeText(code),
                         text);
    }
}

std::shared_ptr<ApplicationWatchdog> CreateWatchdog(
    const std::shared_ptr<app_manager::IApplicationManager>& manager,
    const std::string_view& appName)
{
    auto timerFactory = std::make_shared<timer::QtTimerFactory>();
    auto watchdog = ::common_utils::app_utils::watchdog::CreateWatchdog(appName, manager);
    return std::make_shared<ApplicationWatchdog>(std::move(timerFactory), std::move(watchdog));
}

}  // namespace vdi::common_utils_ui::watchdog
