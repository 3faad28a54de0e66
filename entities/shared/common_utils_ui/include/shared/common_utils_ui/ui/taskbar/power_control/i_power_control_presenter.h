#pragma once

namespace common_utils_ui::taskbar::ui::controls::power_control {

class IPowerControlView;

/// Carries out what the power menu offers. Called by its view, on the UI thread.
class IPowerControlPresenter
{
public:
    virtual ~IPowerControlPresenter() = default;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(IPowerControlView* view) = 0;

    /// The user wants the terminal switched off.
    virtual void Shutdown() = 0;

    /// The user wants the terminal started anew.
    virtual void Reboot() = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::power_control
