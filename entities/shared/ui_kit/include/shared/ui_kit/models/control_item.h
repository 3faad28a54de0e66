#pragma once

#include <QObject>
#include <QUrl>

namespace rdp_client::ui {

Q_NAMESPACE

/// A control of the taskbar.
enum class ControlItemId
{
    Network = 0,
    Clock = 1,
    Language = 2,
    Admin = 3,
};
Q_ENUM_NS(ControlItemId)

/// The component that shows a control.
struct ControlItem
{
    ControlItemId id = ControlItemId::Network;
    QUrl componentUrl;
};

}  // namespace rdp_client::ui
