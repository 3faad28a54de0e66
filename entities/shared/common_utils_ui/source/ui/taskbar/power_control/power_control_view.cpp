#include <utility>

#include <shared/common_utils_ui/ui/taskbar/power_control/power_control_view.h>

namespace common_utils_ui::taskbar::ui::controls::power_control {

PowerControlView::PowerControlView(std::shared_ptr<IPowerControlPresenter> presenter,
                                   QQmlContext* context,
                                   QObject* parent)
    : TaskbarView(std::move(presenter), parent)
{
    CheckCollaborators(context, "PowerControlPresenter is not initialized!", __FILE__, __LINE__);
    Publish(*context, "powerControl");
    setObjectName(QStringLiteral("PowerControl"));
    m_presenter->SetView(this);
}

PowerControlView::~PowerControlView()
{
    m_presenter->SetView(nullptr);
}

void PowerControlView::SetUpdateAvailable(bool available)
{
    if (Change(m_updateAvailable, available))
    {
        emit AvailableUpdateChanged(available);
    }
}

void PowerControlView::OnShow() {}

void PowerControlView::OnHide() {}

void PowerControlView::Activate()
{
    emit hotKeyPressed();
}

void PowerControlView::Deactivate()
{
    if (m_menuShown)
    {
        emit hotKeyPressed();
    }
}

void PowerControlView::SetTaskbarOnBottomPosition(bool onBottom)
{
    if (Change(m_taskbarOnBottom, onBottom))
    {
        emit TaskbarPositionChanged();
    }
}

bool PowerControlView::IsUpdateAvailable() const
{
    return m_updateAvailable;
}

bool PowerControlView::IsTaskbarOnBottomPosition() const
{
    return m_taskbarOnBottom;
}

void PowerControlView::OnShutdownClicked()
{
    m_presenter->Shutdown();
}

void PowerControlView::OnRebootClicked()
{
    m_presenter->Reboot();
}

void PowerControlView::SetMenuShown(bool isShown)
{
    m_menuShown = isShown;
}

}  // namespace common_utils_ui::taskbar::ui::controls::power_control
