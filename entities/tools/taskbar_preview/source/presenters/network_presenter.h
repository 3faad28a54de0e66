#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>

#include <shared/common_utils_ui/ui/taskbar/network_status_control/i_network_status_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/network_status_control/i_network_status_control_view.h>

#include "network_links.h"
#include "network_watch.h"
#include "presenter.h"

namespace taskbar_preview {

namespace network_control = ::common_utils_ui::taskbar::ui::controls::network_status_control;

/// Tells what the kernel knows about the links, as soon as it changes, while the taskbar is shown.
class NetworkPresenter final : public Presenter<network_control::INetworkStatusControlPresenter,
                                                network_control::INetworkStatusControlView>
{
public:
    /// @param onChange  the status has become another one
    NetworkPresenter(std::function<void()> onChange, std::ostream& out);

    void OnShow() override;
    void OnHide() override;
    void OnControlActivated() override;

private:
    void Tell();

    std::function<void()> m_onChange;
    std::ostream& m_out;
    std::optional<NetworkStatus> m_status;
    std::unique_ptr<NetworkWatch> m_watch;
};

}  // namespace taskbar_preview
