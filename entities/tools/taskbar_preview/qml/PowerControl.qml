import QtQuick

// Power, with a menu of what can be done with it. A dot tells that an update waits.
TaskbarControl {
    id: root

    text: qsTr("Power")
    hint: popup.opened ? "" : text
    icon.source: "qrc:/taskbar_preview/images/power.svg"
    shown: powerControl.isVisible

    onClicked: popup.toggle()

    Connections {
        target: powerControl

        function onHotKeyPressed() {
            popup.toggle();
        }
    }

    Rectangle {
        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 6
        width: 8
        height: 8
        radius: 4
        visible: powerControl.isAvailableUpdate
        color: paletteProvider.palette.purplePrimary
    }

    ControlMenu {
        id: popup

        onOpenedChanged: powerControl.SetMenuShown(opened)

        MenuEntry {
            objectName: "Shutdown"
            menu: popup
            text: qsTr("Shut down")

            onClicked: powerControl.OnShutdownClicked()
        }

        MenuEntry {
            objectName: "Reboot"
            menu: popup
            text: powerControl.isAvailableUpdate ? qsTr("Update and restart") : qsTr("Restart")

            onClicked: powerControl.OnRebootClicked()
        }
    }
}
