#pragma once

#include <string_view>

#include <shared/common/utils/callable.h>

namespace common_utils_ui::taskbar::ui::controls::admin_contact_control {

/// The administrator's contact as its presenter sees it. Belongs to the UI thread; presenters on
/// other threads call it through `QtInvoker`.
class IAdminContactControlView : public ::common::utils::ICallable
{
public:
    /// @param text  in UTF-8. Set while the control is invisible, it is there when the control
    ///              shows up, without a signal.
    virtual void SetAdminContactInfo(std::string_view text) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::admin_contact_control
