#include "presenters/notification_presenter.h"

namespace taskbar_preview {

NotificationPresenter::NotificationPresenter(std::ostream& out) : m_out(out) {}

void NotificationPresenter::Add()
{
    SetCount(m_count + 1);
}

void NotificationPresenter::OnShow()
{
    SetCount(m_count);
}

void NotificationPresenter::OnHide() {}

void NotificationPresenter::OnControlActivated()
{
    m_out << "would show notifications: " << m_count << std::endl;
    SetCount(0);
}

void NotificationPresenter::SetCount(int count)
{
    m_count = count;
    if (View() != nullptr)
        View()->SetCount(count);
}

}  // namespace taskbar_preview
