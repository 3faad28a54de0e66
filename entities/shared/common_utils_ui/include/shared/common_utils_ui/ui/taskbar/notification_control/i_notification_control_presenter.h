#pragma once

namespace common_utils_ui::taskbar::ui::controls::notification_control {

class INotificationControlView;

/// Feeds the counter of notifications. Called by its view, on the UI thread.
class INotificationControlPresenter
{
public:
    virtual ~INotificationControlPresenter() = default;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(INotificationControlView* view) = 0;

    /// The taskbar has come up, or has gone from the screen.
    virtual void OnShow() = 0;
    virtual void OnHide() = 0;

    /// The user clicked the control.
    virtual void OnControlActivated() = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::notification_control
