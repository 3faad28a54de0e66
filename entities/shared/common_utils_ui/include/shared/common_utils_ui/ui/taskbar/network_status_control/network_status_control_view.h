#pragma once

#include <memory>

#include <QObject>

#include <shared/common_utils_ui/ui/taskbar/network_status_control/i_network_status_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/network_status_control/i_network_status_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;

namespace common_utils_ui::taskbar::ui::controls::network_status_control {

/// The network indicator, published as `networkStatusIndicator`. The only owner of its presenter.
class NetworkStatusControlView final
    : public TaskbarView<NetworkStatusControlView,
                         INetworkStatusControlView,
                         std::unique_ptr<INetworkStatusControlPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isEnabled READ IsEnabled NOTIFY EnabledChanged)
    Q_PROPERTY(
        network_status::NetworkStatus networkStatus READ NetworkStatus NOTIFY NetworkStatusChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    NetworkStatusControlView(std::unique_ptr<INetworkStatusControlPresenter> presenter,
                             QQmlContext* context,
                             QObject* parent);
    ~NetworkStatusControlView() override;

    void SetNetworkIndicatorStatus(network_status::NetworkStatus status) override;
    void OnShow() override;
    void OnHide() override;

    [[nodiscard]] network_status::NetworkStatus NetworkStatus() const;

    /// The user clicked the control.
    Q_INVOKABLE void OnControlActivated();

signals:
    void VisibleChanged();
    void EnabledChanged();
    void NetworkStatusChanged();

private:
    network_status::NetworkStatus m_networkStatus =
        network_status::NetworkStatus::UnclassifiedError;
};

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control
