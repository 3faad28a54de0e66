#include <utility>

#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/admin_contact_control_view.h>

namespace common_utils_ui::taskbar::ui::controls::admin_contact_control {

AdminContactControlView::AdminContactControlView(
    std::shared_ptr<IAdminContactControlPresenter> presenter,
    QQmlContext* context,
    QObject* parent)
    : TaskbarView(std::move(presenter), parent)
{
    CheckCollaborators(
        context, "AdminContactControlPresenter is not initialized!", __FILE__, __LINE__);
    Publish(*context, "adminContactControl");
    setObjectName(QStringLiteral("AdminContactControl"));
    m_presenter->SetView(this);
}

AdminContactControlView::~AdminContactControlView()
{
    m_presenter->SetView(nullptr);
}

void AdminContactControlView::SetAdminContactInfo(std::string_view text)
{
    m_adminContactCaption = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (IsVisible())
    {
        emit AdminContactCaptionChanged();
    }
}

void AdminContactControlView::OnShow()
{
    m_presenter->OnShow();
}

void AdminContactControlView::OnHide()
{
    m_presenter->OnHide();
}

QString AdminContactControlView::AdminContactCaption() const
{
    return m_adminContactCaption;
}

void AdminContactControlView::OnControlActivated() {}

}  // namespace common_utils_ui::taskbar::ui::controls::admin_contact_control
