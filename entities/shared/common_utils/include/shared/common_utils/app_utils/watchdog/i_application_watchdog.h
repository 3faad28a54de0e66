#pragma once

namespace common_utils::app_utils::watchdog {

/// Passes signs of life on to the application manager.
class IApplicationWatchdog
{
public:
    virtual ~IApplicationWatchdog() = default;

    /// The application is alive. Returns at once, allocates nothing and never throws.
    virtual void Notify() = 0;
};

}  // namespace common_utils::app_utils::watchdog
