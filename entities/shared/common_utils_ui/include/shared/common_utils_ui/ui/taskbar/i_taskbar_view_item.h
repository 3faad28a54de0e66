#pragma once

namespace common_utils_ui::taskbar::ui {

/// A control of the taskbar as the taskbar itself sees it, whatever the control shows. Called on
/// the UI thread.
class ITaskbarViewItem
{
public:
    virtual ~ITaskbarViewItem() = default;

    /// Whether the control has a place in the row at all.
    virtual void SetVisible(bool visible) = 0;

    /// Whether the control takes clicks.
    virtual void SetEnabled(bool enabled) = 0;

    /// The taskbar has come up; what the control shows should be brought up to date.
    virtual void OnShow() = 0;

    /// The taskbar has gone from the screen.
    virtual void OnHide() = 0;

    /// The control's hot key was pressed.
    virtual void Activate() = 0;

    /// The hot key was pressed again, or another control has been activated.
    virtual void Deactivate() = 0;
};

}  // namespace common_utils_ui::taskbar::ui
