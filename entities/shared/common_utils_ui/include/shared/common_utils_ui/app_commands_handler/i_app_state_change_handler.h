#pragma once

namespace vdi::common_utils_ui::app_commands_handler {

/// Follows the states into which the application manager puts an application.
class IAppStateChangeHandler
{
public:
    virtual ~IAppStateChangeHandler() = default;

    /// @param state  0 to 65535; its meaning is the application's
    /// @note thread: the one on which commands arrive, which is not the Qt thread
    virtual void OnStateChanged(unsigned int state) = 0;
};

}  // namespace vdi::common_utils_ui::app_commands_handler
