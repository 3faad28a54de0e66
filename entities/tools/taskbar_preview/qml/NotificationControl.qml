import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// How many notifications wait.
TaskbarControl {
    id: root

    text: notificationContext.count > 0 ? qsTr("Notifications: %1").arg(notificationContext.count)
                                        : qsTr("No notifications")
    hint: text
    icon.source: "qrc:/taskbar_preview/images/bell.svg"
    shown: notificationContext.isVisible
    enabled: notificationContext.isEnabled

    onClicked: notificationContext.OnControlActivated()

    Rectangle {
        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 2
        width: Math.max(16, count.implicitWidth + 8)
        height: 16
        radius: 8
        visible: notificationContext.count > 0
        color: paletteProvider.palette.systemErrorPrimary

        UiKitBase.TextLabel {
            id: count

            anchors.centerIn: parent
            text: notificationContext.count
            font.pixelSize: 10
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
    }
}
