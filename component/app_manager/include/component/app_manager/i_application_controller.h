#pragma once

#include <string_view>

namespace app_manager {

/// What an application tells its manager about itself. Every report blocks until the manager has
/// answered, without a limit, and none of them throws.
///
/// Names and texts are UTF-8 of at most 128 bytes; a longer one fails without reaching the manager.
/// Each returns 0, the manager's result code, or a failure code when the report did not get there.
class IApplicationController
{
public:
    virtual ~IApplicationController() = default;

    virtual int StartApplication(std::string_view appName) = 0;

    /// The process runs and begins to set itself up.
    virtual int ReadyToInitialize(std::string_view appName) = 0;

    /// The application can be used from now on.
    virtual int ReadyToShowUI(std::string_view appName) = 0;

    /// The application cannot go on and ends.
    virtual int FinishWithInternalError(std::string_view appName,
                                        std::string_view error,
                                        std::string_view description) = 0;

    /// @param state  see <component/app_manager/tvo_ipc/command_values.h>
    virtual int StateChanged(std::string_view appName, long state) = 0;
};

}  // namespace app_manager
