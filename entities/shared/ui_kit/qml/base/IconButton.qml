import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Controls.impl
import QtQuick.Window

// A flat button that is nothing but its icon, in the icon's own colours unless one is given.
Button {
    id: root

    property real radius: 0

    padding: 0
    flat: true
    background: null
    icon.width: 20
    icon.height: 20
    icon.color: "transparent"

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()

    contentItem: Item {
        // As sharp as a SharpImage, which takes no colour. Not asynchronous: this type would try to
        // load a missing icon again and again.
        IconImage {
            anchors.centerIn: parent
            width: root.icon.width
            height: root.icon.height
            source: root.icon.source
            sourceSize.width: width * Screen.devicePixelRatio
            sourceSize.height: height * Screen.devicePixelRatio
            color: root.icon.color
            fillMode: Image.PreserveAspectFit

            // With each picture it chooses anew, and pads where it has more pixels than units.
            onFillModeChanged: fillMode = Image.PreserveAspectFit
        }
    }

    Keys.onEnterPressed: clicked()
    Keys.onReturnPressed: clicked()

    FocusFrame {
        active: root.visualFocus
    }

    RightClickedMouseArea {
        anchors.fill: parent
        enabled: root.focusPolicy !== Qt.NoFocus
    }
}
