import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// The keyboard's layout, with a menu of those on offer.
TaskbarControl {
    id: root

    text: layoutControl.keyboardLayout
    hint: popup.opened ? "" : qsTr("Keyboard layout")
    shown: layoutControl.isVisible
    enabled: layoutControl.isEnabled

    contentItem: UiKitBase.TextLabel {
        text: layoutControl.keyboardLayout
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    onClicked: popup.toggle()

    ControlMenu {
        id: popup

        Repeater {
            model: localeModel

            MenuEntry {
                required property var model

                menu: popup
                text: model.display
                implicitWidth: 64

                onClicked: layoutControl.ChangeLayout(text)
            }
        }
    }
}
