#pragma once

namespace common_utils_ui::taskbar::ui::controls::network_status_control {

class INetworkStatusControlView;

/// Feeds the network indicator. Called by its view, on the UI thread.
class INetworkStatusControlPresenter
{
public:
    virtual ~INetworkStatusControlPresenter() = default;

    /// The taskbar has come up, or has gone from the screen.
    virtual void OnShow() = 0;
    virtual void OnHide() = 0;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(INetworkStatusControlView* view) = 0;

    /// The user clicked the control.
    virtual void OnControlActivated() = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control
