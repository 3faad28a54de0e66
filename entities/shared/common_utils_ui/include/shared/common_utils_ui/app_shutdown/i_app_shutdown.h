#pragma once

namespace vdi::common_utils_ui::app_shutdown {

class IAppShutdown
{
public:
    virtual ~IAppShutdown() = default;

    /// Lets the application end. Returns before it has.
    /// @note thread: any
    virtual void StopApplication() const noexcept = 0;
};

}  // namespace vdi::common_utils_ui::app_shutdown
