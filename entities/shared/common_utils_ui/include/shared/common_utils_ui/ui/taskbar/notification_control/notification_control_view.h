#pragma once

#include <memory>

#include <QObject>

#include <shared/common_utils_ui/ui/taskbar/notification_control/i_notification_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/notification_control/i_notification_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;

namespace common_utils_ui::taskbar::ui::controls::notification_control {

/// The counter of notifications, published as `notificationContext`.
class NotificationControlView final
    : public TaskbarView<NotificationControlView,
                         INotificationControlView,
                         std::shared_ptr<INotificationControlPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isEnabled READ IsEnabled NOTIFY EnabledChanged)
    Q_PROPERTY(int count READ Count NOTIFY CountChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    NotificationControlView(std::shared_ptr<INotificationControlPresenter> presenter,
                            QQmlContext* context,
                            QObject* parent);
    ~NotificationControlView() override;

    void SetCount(int count) override;
    void OnShow() override;
    void OnHide() override;

    [[nodiscard]] int Count() const;

    /// The user clicked the control.
    Q_INVOKABLE void OnControlActivated();

signals:
    void VisibleChanged();
    void EnabledChanged();
    void CountChanged();

private:
    int m_count = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::notification_control
