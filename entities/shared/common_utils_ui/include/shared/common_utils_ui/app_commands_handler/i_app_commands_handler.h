#pragma once

namespace vdi::common_utils_ui::app_commands_handler {

/// Carries out what the application manager asks of this application.
class IAppCommandsHandler
{
public:
    virtual ~IAppCommandsHandler() = default;

    /// Carries out the commands from now on. One that was given before takes effect with the next.
    /// @returns 0
    virtual int StartProcessing() = 0;
};

}  // namespace vdi::common_utils_ui::app_commands_handler
