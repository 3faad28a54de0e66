#pragma once

#include <ostream>

#include <shared/common_utils_ui/ui/taskbar/notification_control/i_notification_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/notification_control/i_notification_control_view.h>

#include "presenter.h"

namespace taskbar_preview {

namespace notification_control = ::common_utils_ui::taskbar::ui::controls::notification_control;

/// Counts notifications until the user looks at them.
class NotificationPresenter final
    : public Presenter<notification_control::INotificationControlPresenter,
                       notification_control::INotificationControlView>
{
public:
    explicit NotificationPresenter(std::ostream& out);

    void Add();

    void OnShow() override;
    void OnHide() override;
    void OnControlActivated() override;

private:
    void SetCount(int count);

    std::ostream& m_out;
    int m_count = 0;
};

}  // namespace taskbar_preview
