#pragma once

#include <shared/common/utils/callable.h>

namespace common_utils_ui::taskbar::ui::controls::notification_control {

/// The counter of notifications as its presenter sees it. Belongs to the UI thread; presenters on
/// other threads call it through `QtInvoker`.
class INotificationControlView : public ::common::utils::ICallable
{
public:
    virtual void SetCount(int count) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::notification_control
