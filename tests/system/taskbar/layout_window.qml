import QtQuick
import QtQuick.Window

// The layout control as two halves: a line to type in, and a button for the other layout.
Window {
    id: root

    readonly property string shown: layoutControl.keyboardLayout

    width: 300
    height: 200
    visible: true
    flags: Qt.FramelessWindowHint
    color: "#404040"

    onShownChanged: console.log("shows", shown)

    TextInput {
        width: parent.width
        focus: true
        cursorVisible: false

        onTextEdited: console.log("typed", text)
    }

    MouseArea {
        y: 100
        width: parent.width
        height: 100

        onClicked: layoutControl.ChangeLayout(root.shown === "$en-US$" ? "$ru-RU$" : "$en-US$")
    }
}
