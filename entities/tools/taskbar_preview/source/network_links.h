#pragma once

#include <map>
#include <string>

#include <shared/common_utils_ui/ui/taskbar/network_status_control/network_status.h>

namespace taskbar_preview {

using NetworkStatus =
    ::common_utils_ui::taskbar::ui::controls::network_status_control::network_status::NetworkStatus;

/// What the kernel says about a network interface.
struct Link
{
    bool isUp = false;        ///< it could carry packets: switched on, and the cable is in
    bool hasAddress = false;  ///< one that leads further than the cable does
};

/// All interfaces by their names, without those that lead back to this machine.
/// @throws std::system_error
std::map<std::string, Link> ReadLinks();

/// One interface that works is enough.
NetworkStatus StatusOf(const std::map<std::string, Link>& links);

}  // namespace taskbar_preview
