#pragma once

namespace common_utils_ui::taskbar::ui::controls::admin_contact_control {

class IAdminContactControlView;

/// Feeds the control that tells how to reach the administrator. Called by its view, on the UI
/// thread.
class IAdminContactControlPresenter
{
public:
    virtual ~IAdminContactControlPresenter() = default;

    /// The taskbar has come up, or has gone from the screen.
    virtual void OnShow() = 0;
    virtual void OnHide() = 0;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(IAdminContactControlView* view) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::admin_contact_control
