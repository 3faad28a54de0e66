#include <utility>

#include <shared/common_utils_ui/ui/taskbar/network_status_control/network_status_control_view.h>

namespace common_utils_ui::taskbar::ui::controls::network_status_control {

NetworkStatusControlView::NetworkStatusControlView(
    std::unique_ptr<INetworkStatusControlPresenter> presenter,
    QQmlContext* context,
    QObject* parent)
    : TaskbarView(std::move(presenter), parent)
{
    CheckCollaborators(
        context, "NetworkStatusControlPresenter is not initialized!", __FILE__, __LINE__);
    Publish(*context, "networkStatusIndicator");
    m_presenter->SetView(this);
}

NetworkStatusControlView::~NetworkStatusControlView()
{
    m_presenter->SetView(nullptr);
}

void NetworkStatusControlView::SetNetworkIndicatorStatus(network_status::NetworkStatus status)
{
    if (Change(m_networkStatus, status))
    {
        emit NetworkStatusChanged();
    }
}

void NetworkStatusControlView::OnShow()
{
    m_presenter->OnShow();
}

void NetworkStatusControlView::OnHide()
{
    m_presenter->OnHide();
}

network_status::NetworkStatus NetworkStatusControlView::NetworkStatus() const
{
    return m_networkStatus;
}

void NetworkStatusControlView::OnControlActivated()
{
    m_presenter->OnControlActivated();
}

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control
