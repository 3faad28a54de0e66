#pragma once

#include <QObject>

/// The link to the central management server. No control of this library shows it.
namespace common_utils_ui::taskbar::ui::controls::network_status_control::zrc_status {

Q_NAMESPACE

enum class ZrcStatus
{
    Connected = 0,
    Disconnected = 1,
};
Q_ENUM_NS(ZrcStatus)

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control::zrc_status
