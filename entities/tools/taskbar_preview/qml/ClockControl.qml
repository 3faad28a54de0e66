import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// The time over the date.
TaskbarControl {
    text: timeControl.timeCaption + ", " + timeControl.dateCaption
    hint: timeControl.dateCaption
    shown: timeControl.isVisible
    enabled: timeControl.isEnabled
    horizontalPadding: 12
    topPadding: (height - implicitContentHeight) / 2

    contentItem: Column {
        UiKitBase.TextLabel {
            anchors.right: parent.right
            text: timeControl.timeCaption
            font.pixelSize: 14
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }

        UiKitBase.TextPromt {
            anchors.right: parent.right
            text: timeControl.dateCaption
            font.pixelSize: 12
            Accessible.ignored: true
        }
    }

    onClicked: timeControl.OnControlActivated()
}
