#pragma once

#include <memory>

#include <QObject>

#include <shared/common_utils_ui/ui/taskbar/power_control/i_power_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/power_control/i_power_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;

namespace common_utils_ui::taskbar::ui::controls::power_control {

/// The power menu, published as `powerControl`. It has a hot key, which opens the menu and closes
/// it again, and no use for the taskbar's coming and going.
class PowerControlView final : public TaskbarView<PowerControlView,
                                                  IPowerControlView,
                                                  std::shared_ptr<IPowerControlPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isAvailableUpdate READ IsUpdateAvailable NOTIFY AvailableUpdateChanged)
    Q_PROPERTY(
        bool isTaskbarOnBottomPosition READ IsTaskbarOnBottomPosition NOTIFY TaskbarPositionChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    PowerControlView(std::shared_ptr<IPowerControlPresenter> presenter,
                     QQmlContext* context,
                     QObject* parent);
    ~PowerControlView() override;

    void SetUpdateAvailable(bool available) override;
    void OnShow() override;
    void OnHide() override;
    void Activate() override;

    /// Counts as the hot key only while the menu is shown.
    void Deactivate() override;

    /// Tells on which edge of the screen the taskbar stands, so that QML knows where the menu
    /// opens.
    void SetTaskbarOnBottomPosition(bool onBottom);

    [[nodiscard]] bool IsUpdateAvailable() const;
    [[nodiscard]] bool IsTaskbarOnBottomPosition() const;

    Q_INVOKABLE void OnShutdownClicked();
    Q_INVOKABLE void OnRebootClicked();

    /// QML tells whether its menu is open.
    Q_INVOKABLE void SetMenuShown(bool isShown);

signals:
    void VisibleChanged(bool isVisible);
    void EnabledChanged(bool isEnabled);
    void AvailableUpdateChanged(bool isAvailable);
    void TaskbarPositionChanged();
    void hotKeyPressed();

private:
    bool m_updateAvailable = false;
    bool m_taskbarOnBottom = false;
    bool m_menuShown = false;
};

}  // namespace common_utils_ui::taskbar::ui::controls::power_control
