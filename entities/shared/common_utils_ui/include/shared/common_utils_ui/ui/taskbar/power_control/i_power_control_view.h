#pragma once

#include <shared/common/utils/callable.h>

namespace common_utils_ui::taskbar::ui::controls::power_control {

/// The power menu as its presenter sees it. Belongs to the UI thread; presenters on other threads
/// call it through `QtInvoker`.
class IPowerControlView : public ::common::utils::ICallable
{
public:
    /// Whether an update is ready to be installed with the next start.
    virtual void SetUpdateAvailable(bool available) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::power_control
