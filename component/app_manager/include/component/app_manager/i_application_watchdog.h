#pragma once

#include <string_view>

namespace app_manager {

/// Shows the manager that an application is alive.
class IApplicationWatchdog
{
public:
    virtual ~IApplicationWatchdog() = default;

    /// Blocks until the manager has answered. A manager that is gone ends the process.
    /// @returns 0 or the manager's result code
    virtual int Ping(std::string_view appName) = 0;
};

}  // namespace app_manager
