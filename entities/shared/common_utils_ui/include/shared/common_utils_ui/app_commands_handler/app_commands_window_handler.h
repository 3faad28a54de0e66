#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <shared/common/utils/task_executor.h>
#include <shared/common_utils_ui/app_commands_handler/app_commands_handler.h>
#include <shared/common_utils_ui/app_shutdown/i_app_shutdown.h>
#include <shared/common_utils_ui/window/i_window.h>

namespace vdi::common_utils_ui::app_commands_handler {

/// Shows, hides and closes the application's window on command; closing it ends the application.
/// What is posted to the UI thread refers to this object: it has to outlive the event loop.
class AppCommandsWindowHandler final : public AppCommandsHandler
{
public:
    /// @param taskExecutor  runs tasks on the UI thread
    /// @throws zin::CheckFailedException  the name is empty or a collaborator missing
    AppCommandsWindowHandler(std::string_view appName,
                             std::shared_ptr<app_manager::IApplicationCommands> commands,
                             std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
                             std::shared_ptr<windows::components::IWindow> window,
                             std::shared_ptr<::common::utils::ITaskExecutor> taskExecutor,
                             std::shared_ptr<app_shutdown::IAppShutdown> appShutdown);

    /// The same with a handler for states.
    AppCommandsWindowHandler(std::string_view appName,
                             std::shared_ptr<app_manager::IApplicationCommands> commands,
                             std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
                             std::shared_ptr<IAppStateChangeHandler> stateChangeHandler,
                             std::shared_ptr<windows::components::IWindow> window,
                             std::shared_ptr<::common::utils::ITaskExecutor> taskExecutor,
                             std::shared_ptr<app_shutdown::IAppShutdown> appShutdown);

    ~AppCommandsWindowHandler() override;

private:
    using Action = void (AppCommandsWindowHandler::*)();

    void ProcessSystemState(long state) noexcept override;
    void CheckCollaborators() const;

    void Post(long state, Action action);
    void ShowWindow();
    void HideWindow();
    void CloseWindow();

    std::shared_ptr<windows::components::IWindow> m_window;
    std::shared_ptr<::common::utils::ITaskExecutor> m_taskExecutor;
    std::shared_ptr<app_shutdown::IAppShutdown> m_appShutdown;
    // What the window is told to show. No command carries anything yet.
    std::optional<std::variant<std::monostate, unsigned long, std::string>> m_parameter;
};

}  // namespace vdi::common_utils_ui::app_commands_handler
