#pragma once

#include <memory>
#include <ostream>
#include <string>

#include <shared/common/timer/timer.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/i_date_time_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/i_date_time_control_view.h>

#include "presenter.h"

namespace taskbar_preview {

namespace clock_control = ::common_utils_ui::taskbar::ui::controls::datetime_control;

/// Tells the system's time once a second while the taskbar is shown.
class ClockPresenter final : public Presenter<clock_control::IDateTimeControlPresenter,
                                              clock_control::IDateTimeControlView>
{
public:
    /// @param language  a locale name
    ClockPresenter(::timer::ITimerFactory& timers, std::string language, std::ostream& out);

    void OnShow() override;
    void OnHide() override;
    void OnControlActivated() override;

private:
    void Tell() const;

    std::unique_ptr<::timer::ITimer> m_timer;
    std::string m_language;
    std::ostream& m_out;
};

}  // namespace taskbar_preview
