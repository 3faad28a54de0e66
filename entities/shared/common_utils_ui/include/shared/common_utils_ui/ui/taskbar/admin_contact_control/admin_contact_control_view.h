#pragma once

#include <memory>
#include <string_view>

#include <QObject>
#include <QString>

#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/i_admin_contact_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/i_admin_contact_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;

namespace common_utils_ui::taskbar::ui::controls::admin_contact_control {

/// How to reach the administrator, published as `adminContactControl`.
class AdminContactControlView final
    : public TaskbarView<AdminContactControlView,
                         IAdminContactControlView,
                         std::shared_ptr<IAdminContactControlPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(
        QString adminContactCaption READ AdminContactCaption NOTIFY AdminContactCaptionChanged)
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isEnabled READ IsEnabled NOTIFY EnabledChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    AdminContactControlView(std::shared_ptr<IAdminContactControlPresenter> presenter,
                            QQmlContext* context,
                            QObject* parent);
    ~AdminContactControlView() override;

    void SetAdminContactInfo(std::string_view text) override;
    void OnShow() override;
    void OnHide() override;

    [[nodiscard]] QString AdminContactCaption() const;

    /// A click on the contact means nothing.
    Q_INVOKABLE void OnControlActivated();

signals:
    void AdminContactCaptionChanged();
    void VisibleChanged();
    void EnabledChanged();

private:
    QString m_adminContactCaption;
};

}  // namespace common_utils_ui::taskbar::ui::controls::admin_contact_control
