import QtQuick
import QtQuick.Window

// A desktop with nothing on it but the taskbar, so that there is room for tooltips and menus.
Window {
    id: root

    width: 800
    height: 280
    minimumWidth: 480
    minimumHeight: 160
    title: qsTr("Taskbar preview")
    color: "#5A6470"

    Shortcut {
        sequence: "Ctrl+Q"

        onActivated: root.close()
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        y: powerControl.isTaskbarOnBottomPosition ? parent.height - height : 0
        height: 48
        color: paletteProvider.palette.backgroundBase

        Row {
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Repeater {
                model: controlItems

                Loader {
                    id: loader

                    required property url componentUrlFromModel
                    readonly property TaskbarControl control: item as TaskbarControl

                    source: componentUrlFromModel
                    visible: control && control.shown
                }
            }

            NotificationControl {}

            PowerControl {
                objectName: "Power"
            }
        }
    }
}
