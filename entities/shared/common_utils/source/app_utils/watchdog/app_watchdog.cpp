#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <shared/common_utils/app_utils/watchdog/application_watchdog.h>

namespace common_utils::app_utils::watchdog {

using ExecutionAction = ::common::utils::ICancellationToken::ExecutionAction;

ApplicationWatchdog::ApplicationWatchdog(
    std::string_view appName,
    std::shared_ptr<::app_manager::IApplicationWatchdog> watchdog)
    : m_appName(appName), m_watchdog(std::move(watchdog)), m_token(ExecutionAction::Run)
{
    ZIN_CHECK(m_watchdog, "ApplicationWatchdog is null");
    m_thread = std::thread(&ApplicationWatchdog::Worker, this);
}

ApplicationWatchdog::~ApplicationWatchdog()
{
    try
    {
        m_token.SetAction(ExecutionAction::Cancel);
        m_thread.join();
    }
    catch (...)
    {
        const auto [code, text] = ::plk::utils::ProcessException();
        TVO_LOG_CRITICAL("ApplicationWatchdog destruction failed: - [{}, {}]",
                         ::plk::zinx::ResultCodeText(code),
                         text);
    }
}

void ApplicationWatchdog::Notify()
{
    try
    {
        m_token.Resume();
    }
    catch (...)
    {
        const auto [code, text] = ::plk::utils::ProcessException();
        TVO_LOG_CRITICAL("ApplicationWatchdog::Notify failed: - [{}, {}]",
                         ::plk::zinx::ResultCodeText(code),
                         text);
    }
}

void ApplicationWatchdog::Worker()
{
    while (!m_token.IsCanceled())
    {
        m_token.Wait();
        if (m_token.IsCanceled())
        {
            break;
        }
        m_watchdog->Ping(m_appName);
    }
}

std::unique_ptr<IApplicationWatchdog> CreateWatchdog(
    std::string_view appName,
    const std::shared_ptr<::app_manager::IApplicationManager>& manager)
{
    ZIN_CHECK(manager, "ApplicationManager is null");
    auto watchdog = manager->GetApplicationWatchdog();
    ZIN_CHECK(watchdog, "ApplicationWatchdog is null");
    return std::make_unique<ApplicationWatchdog>(appName, std::move(watchdog));
}

}  // namespace common_utils::app_utils::watchdog
