#pragma once

namespace common_utils_ui::taskbar::ui::controls::datetime_control {

class IDateTimeControlView;

/// Feeds the clock with time and language. Called by its view, on the UI thread.
class IDateTimeControlPresenter
{
public:
    virtual ~IDateTimeControlPresenter() = default;

    /// The taskbar has come up, or has gone from the screen.
    virtual void OnShow() = 0;
    virtual void OnHide() = 0;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(IDateTimeControlView* view) = 0;

    /// The user clicked the control.
    virtual void OnControlActivated() = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::datetime_control
