#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <component/app_manager/i_application_commands.h>
#include <shared/common_utils_ui/app_commands_handler/i_app_commands_handler.h>
#include <shared/common_utils_ui/app_commands_handler/i_app_state_change_handler.h>

namespace vdi::common_utils_ui::app_commands_handler {

/// Fetches the command whenever it has changed, and tells apart what is meant for the system, which
/// a derived class carries out, and what is a state of the application.
class AppCommandsHandler : public IAppCommandsHandler
{
public:
    /// @throws zin::CheckFailedException  the name is empty or a collaborator missing
    AppCommandsHandler(std::string_view appName,
                       std::shared_ptr<app_manager::IApplicationCommands> commands,
                       std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber);

    /// The same with a handler for states; without one they are logged and nothing else.
    AppCommandsHandler(std::string_view appName,
                       std::shared_ptr<app_manager::IApplicationCommands> commands,
                       std::shared_ptr<app_manager::ICommandChangedSubscriber> subscriber,
                       std::shared_ptr<IAppStateChangeHandler> stateChangeHandler);

    ~AppCommandsHandler() override;

    AppCommandsHandler(const AppCommandsHandler&) = delete;
    AppCommandsHandler& operator=(const AppCommandsHandler&) = delete;

    int StartProcessing() override;

protected:
    /// @param state  negative
    /// @note thread: the one on which commands arrive. It must neither register nor unregister a
    ///       callback, and a wait for the Qt thread could last for ever.
    virtual void ProcessSystemState(long state) = 0;

    /// Waits for a command that is being carried out; no other follows. To be called first in the
    /// destructor of the class that carries the commands out, so that none meets an object half
    /// destroyed. A second call has no effect.
    void StopProcessing() noexcept;

private:
    void OnCommandChanged();
    void ProcessState(long state) noexcept;

    std::string m_appName;
    std::shared_ptr<app_manager::IApplicationCommands> m_commands;
    std::shared_ptr<app_manager::ICommandChangedSubscriber> m_subscriber;
    app_manager::CallbackId m_callbackId = 0;
    std::shared_ptr<IAppStateChangeHandler> m_stateChangeHandler;
};

}  // namespace vdi::common_utils_ui::app_commands_handler
