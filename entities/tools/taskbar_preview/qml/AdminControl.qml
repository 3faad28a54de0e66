import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// How to reach the administrator.
TaskbarControl {
    text: adminContactControl.adminContactCaption
    hint: qsTr("Your administrator")
    shown: adminContactControl.isVisible
    enabled: adminContactControl.isEnabled
    horizontalPadding: 12

    contentItem: UiKitBase.TextPromt {
        text: adminContactControl.adminContactCaption
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }

    onClicked: adminContactControl.OnControlActivated()
}
