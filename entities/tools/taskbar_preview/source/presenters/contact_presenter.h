#pragma once

#include <string>
#include <utility>

#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/i_admin_contact_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/i_admin_contact_control_view.h>

#include "presenter.h"

namespace taskbar_preview {

namespace contact_control = ::common_utils_ui::taskbar::ui::controls::admin_contact_control;

/// Tells one text.
class ContactPresenter final : public Presenter<contact_control::IAdminContactControlPresenter,
                                                contact_control::IAdminContactControlView>
{
public:
    explicit ContactPresenter(std::string contact) : m_contact(std::move(contact)) {}

    void OnShow() override
    {
        if (View() != nullptr)
            View()->SetAdminContactInfo(m_contact);
    }

    void OnHide() override {}

private:
    std::string m_contact;
};

}  // namespace taskbar_preview
