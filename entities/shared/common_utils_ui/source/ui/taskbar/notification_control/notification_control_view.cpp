#include <utility>

#include <shared/common_utils_ui/ui/taskbar/notification_control/notification_control_view.h>

namespace common_utils_ui::taskbar::ui::controls::notification_control {

NotificationControlView::NotificationControlView(
    std::shared_ptr<INotificationControlPresenter> presenter,
    QQmlContext* context,
    QObject* parent)
    : TaskbarView(std::move(presenter), parent)
{
    CheckCollaborators(
        context, "NotificationControlPresenter is not initialized!", __FILE__, __LINE__);
    Publish(*context, "notificationContext");
    m_presenter->SetView(this);
}

NotificationControlView::~NotificationControlView()
{
    m_presenter->SetView(nullptr);
}

void NotificationControlView::SetCount(int count)
{
    if (Change(m_count, count))
    {
        emit CountChanged();
    }
}

void NotificationControlView::OnShow()
{
    m_presenter->OnShow();
}

void NotificationControlView::OnHide()
{
    m_presenter->OnHide();
}

int NotificationControlView::Count() const
{
    return m_count;
}

void NotificationControlView::OnControlActivated()
{
    m_presenter->OnControlActivated();
}

}  // namespace common_utils_ui::taskbar::ui::controls::notification_control
