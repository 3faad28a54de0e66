#pragma once

#include <shared/common/utils/callable.h>
#include <shared/common_utils_ui/ui/taskbar/network_status_control/network_status.h>

namespace common_utils_ui::taskbar::ui::controls::network_status_control {

/// The network indicator as its presenter sees it. Belongs to the UI thread; presenters on other
/// threads call it through `QtInvoker`.
class INetworkStatusControlView : public ::common::utils::ICallable
{
public:
    virtual void SetNetworkIndicatorStatus(network_status::NetworkStatus status) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control
