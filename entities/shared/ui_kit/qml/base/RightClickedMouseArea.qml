import QtQuick

// Gives the control that holds it the focus on a right click.
MouseArea {
    acceptedButtons: Qt.RightButton

    onClicked: parent.forceActiveFocus()
}
