import QtQuick

// The button that closes a window or a page. It acts on the press, not on the release.
Item {
    id: root

    property var pal: paletteProvider.palette
    property string defaultIcon: "qrc:/ui_kit/images/close_icon"
    property alias icon: button.icon.source
    property alias activeButtonFocus: button.activeFocus
    property alias hovered: mouseArea.containsMouse
    property int buttonSize: 40
    property int iconSize: 16
    property int radius: 12

    signal activated

    implicitWidth: buttonSize
    implicitHeight: buttonSize

    Rectangle {
        anchors.fill: button
        radius: root.radius
        color: {
            if (root.hovered || root.activeButtonFocus) {
                return root.pal ? root.pal.contentBorder : "#29FFFFFF";
            }
            return root.pal ? root.pal.contentBackground : "#14FFFFFF";
        }

        // Here for the hover: a press ends in the button above unless that lets it through.
        MouseArea {
            id: mouseArea

            anchors.fill: parent
            hoverEnabled: true

            onClicked: root.activated()
        }
    }

    IconButton {
        id: button

        anchors.centerIn: parent
        width: root.buttonSize
        height: root.buttonSize
        radius: root.radius
        hoverEnabled: false
        text: qsTr("Close")
        icon.source: root.defaultIcon
        icon.color: "white"
        icon.width: root.iconSize
        icon.height: root.iconSize

        Accessible.onPressAction: if (enabled) root.activated()

        onPressed: root.activated()

        Keys.onEnterPressed: root.activated()
        Keys.onReturnPressed: root.activated()
    }
}
