#include <functional>
#include <utility>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils_ui/app_commands_handler/app_commands_window_handler.h>

namespace vdi::common_utils_ui::app_commands_handler {

namespace {

/// Nothing above this, on either thread, takes an exception.
template <typename Work>
void LogFailure(long state, Work work) noexcept
{
    try
    {
        work();
    }
    catch (...)
    {
        const auto [code, text] = ::common::utils::ProcessException();
        TVO_LOG_AS(tvo::logger::LogLevel::Error,
                   "ProcessSystemState",
                   "AppCommandsNavigatorHandler: Failed to proccess state {}[{}] - {},",
                   state,
                   code,
                   text);
    }
}

}  // namespace

AppCommandsWindowHandler::AppCommandsWindowHandler(
    std::string_view appName,
    std::shared_ptr<app_manager::IApplicationCommands> commands,
    std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
    std::shared_ptr<windows::components::IWindow> window,
    std::shared_ptr<::common::utils::ITaskExecutor> taskExecutor,
    std::shared_ptr<app_shutdown::IAppShutdown> appShutdown)
    : AppCommandsHandler(appName, std::move(commands), std::move(subscriber)),
      m_window(std::move(window)),
      m_taskExecutor(std::move(taskExecutor)),
      m_appShutdown(std::move(appShutdown))
{
    CheckCollaborators();
}

AppCommandsWindowHandler::AppCommandsWindowHandler(
    std::string_view appName,
    std::shared_ptr<app_manager::IApplicationCommands> commands,
    std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
    std::shared_ptr<IAppStateChangeHandler> stateChangeHandler,
    std::shared_ptr<windows::components::IWindow> window,
    std::shared_ptr<::common::utils::ITaskExecutor> taskExecutor,
    std::shared_ptr<app_shutdown::IAppShutdown> appShutdown)
    : AppCommandsHandler(appName,
                         std::move(commands),
                         std::move(subscriber),
                         std::move(stateChangeHandler)),
      m_window(std::move(window)),
      m_taskExecutor(std::move(taskExecutor)),
      m_appShutdown(std::move(appShutdown))
{
    CheckCollaborators();
}

AppCommandsWindowHandler::~AppCommandsWindowHandler()
{
    StopProcessing();
}

void AppCommandsWindowHandler::CheckCollaborators() const
{
    ZIN_CHECK(m_window != nullptr, "Window ptr is nullptr");
    ZIN_CHECK(m_taskExecutor != nullptr, "Ui Task executor is nullptr");
    ZIN_CHECK(m_appShutdown != nullptr, "AppShutdown is nullptr");
}

void AppCommandsWindowHandler::ProcessSystemState(long state) noexcept
{
    LogFailure(state,
               [&]
               {
                   switch (state)
                   {
                       case app_manager::commands::ShowWindow:
                           Post(state, &AppCommandsWindowHandler::ShowWindow);
                           break;
                       case app_manager::commands::HideWindow:
                           Post(state, &AppCommandsWindowHandler::HideWindow);
                           break;
                       case app_manager::commands::CloseWindow:
                           // In this order, so that whoever waits for an answer gets one.
                           Post(state, &AppCommandsWindowHandler::CloseWindow);
                           m_appShutdown->StopApplication();
                           break;
                       default:
                           TVO_LOG_AS(tvo::logger::LogLevel::Error,
                                      "ProcessSystemState",
                                      "AppCommandsNavigatorHandler: Unknown command: {}",
                                      state);
                   }
               });
}

void AppCommandsWindowHandler::Post(long state, Action action)
{
    m_taskExecutor->PostTask(std::make_unique<::common::utils::GenericTask>(
        [this, state, action] { LogFailure(state, std::bind_front(action, this)); }));
}

void AppCommandsWindowHandler::ShowWindow()
{
    if (m_parameter.has_value())
    {
        m_window->SetParameter(*m_parameter);
    }
    m_window->Show();
}

void AppCommandsWindowHandler::HideWindow()
{
    m_window->Hide();
}

void AppCommandsWindowHandler::CloseWindow()
{
    m_window->Close();
}

}  // namespace vdi::common_utils_ui::app_commands_handler
