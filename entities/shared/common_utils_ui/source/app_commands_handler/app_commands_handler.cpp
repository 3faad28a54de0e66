#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils_ui/app_commands_handler/app_commands_handler.h>

namespace vdi::common_utils_ui::app_commands_handler {

namespace {

constexpr long LargestState = 65535;

}  // namespace

AppCommandsHandler::AppCommandsHandler(
    std::string_view appName,
    std::shared_ptr<app_manager::IApplicationCommands> commands,
    std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber)
    : m_appName(appName), m_commands(std::move(commands)), m_subscriber(std::move(subscriber))
{
    ZIN_CHECK(!m_appName.empty(), "App name is empty!");
    ZIN_CHECK(m_commands != nullptr, "AppCommands is not initialized!");
    ZIN_CHECK(m_subscriber != nullptr, "ChangeSubscriber is nullptr");
}

AppCommandsHandler::AppCommandsHandler(
    std::string_view appName,
    std::shared_ptr<app_manager::IApplicationCommands> commands,
    std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
    std::shared_ptr<IAppStateChangeHandler> stateChangeHandler)
    : m_appName(appName),
      m_commands(std::move(commands)),
      m_subscriber(std::move(subscriber)),
      m_stateChangeHandler(std::move(stateChangeHandler))
{
    ZIN_CHECK(!m_appName.empty(), "App name is empty!");
    ZIN_CHECK(m_commands != nullptr, "AppCommands is not initialized!");
    ZIN_CHECK(m_stateChangeHandler != nullptr, "StateChangeHandler is nullptr");
    ZIN_CHECK(m_subscriber != nullptr, "ChangeSubscriber is nullptr");
}

AppCommandsHandler::~AppCommandsHandler()
{
    StopProcessing();
}

int AppCommandsHandler::StartProcessing()
{
    m_callbackId = m_subscriber->RegisterCallback([this] { OnCommandChanged(); });
    return 0;
}

void AppCommandsHandler::StopProcessing() noexcept
{
    const auto subscriber = std::exchange(m_subscriber, nullptr);
    if (subscriber == nullptr)
    {
        return;
    }
    try
    {
        subscriber->UnregisterCallback(m_callbackId);
    }
    catch (...)
    {
        const auto [code, text] = ::common::utils::ProcessException();
        TVO_LOG_AS(tvo::logger::LogLevel::Error,
                   "~AppCommandsHandler",
                   "AppCommandsHandler destruction failed: ({}) {}",
                   code,
                   text);
    }
}

void AppCommandsHandler::OnCommandChanged()
{
    long command = 0;
    if (m_commands->GetCommand(m_appName, command) == 0)
    {
        ProcessState(command);
    }
}

void AppCommandsHandler::ProcessState(long state) noexcept
{
    try
    {
        TVO_LOG_INFO("{} receive state {}", m_appName, state);
        if (state < 0)
        {
            ProcessSystemState(state);
        }
        else if (state <= LargestState && m_stateChangeHandler != nullptr)
        {
            m_stateChangeHandler->OnStateChanged(static_cast<unsigned int>(state));
        }
    }
    catch (...)
    {
        const auto [code, text] = ::common::utils::ProcessException();
        TVO_LOG_ERROR("{}: Failed to process state {}: {} - {}", m_appName, state, code, text);
    }
}

}  // namespace vdi::common_utils_ui::app_commands_handler
