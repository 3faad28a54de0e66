#pragma once

#include <QObject>

/// How far the terminal's network has come. QML reads the numbers.
namespace common_utils_ui::taskbar::ui::controls::network_status_control::network_status {

Q_NAMESPACE

enum class NetworkStatus
{
    UnclassifiedError = 0,
    CableDisconnected = 1,
    MediaLinkedNoIpAddress = 2,
    Connected = 3,
};
Q_ENUM_NS(NetworkStatus)

}  // namespace common_utils_ui::taskbar::ui::controls::network_status_control::network_status
