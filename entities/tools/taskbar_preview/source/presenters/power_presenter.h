#pragma once

#include <ostream>

#include <shared/common_utils_ui/ui/taskbar/power_control/i_power_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/power_control/i_power_control_view.h>

#include "presenter.h"

namespace taskbar_preview {

namespace power_control = ::common_utils_ui::taskbar::ui::controls::power_control;

/// Prints what the terminal would do, and does nothing.
class PowerPresenter final
    : public Presenter<power_control::IPowerControlPresenter, power_control::IPowerControlView>
{
public:
    PowerPresenter(bool isUpdateReady, std::ostream& out);

    void SetView(power_control::IPowerControlView* view) override;
    void Shutdown() override;
    void Reboot() override;

private:
    bool m_isUpdateReady;
    std::ostream& m_out;
};

}  // namespace taskbar_preview
