#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace app_manager {

/// Reads what the manager wants an application to do.
class IApplicationCommands
{
public:
    virtual ~IApplicationCommands() = default;

    /// Asks for the latest command; one that was replaced in the meantime is not seen. Blocks until
    /// the manager has answered. A manager that is gone ends the process.
    /// @param command  see <component/app_manager/tvo_ipc/command_values.h>
    /// @returns 0 or the manager's result code
    virtual int GetCommand(std::string_view appName, long& command) = 0;
};

/// Names a registered callback; never 0 and never given twice.
using CallbackId = std::uint64_t;

/// Tells when the command has changed. Implemented beside `IApplicationCommands` by objects that
/// can tell.
///
/// Callbacks run one after the other on a thread of the implementation's. A callback must neither
/// register nor unregister: that waits for the round of callbacks that it is part of.
class ICommandChangedSubscriber
{
public:
    virtual ~ICommandChangedSubscriber() = default;

    /// @throws zin::CheckFailedException  for an empty callback
    virtual CallbackId RegisterCallback(std::function<void()> callback) = 0;

    /// Waits for a round that is running; after it the callback is not called any more. An id that
    /// is not known leaves a warning.
    virtual void UnregisterCallback(CallbackId id) = 0;
};

}  // namespace app_manager
