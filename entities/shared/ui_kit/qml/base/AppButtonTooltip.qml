import QtQuick

// The tooltip of a program's button in the taskbar. It belongs to the item that its user calls
// launchButton, wherever in the user's document it is declared.
AppTooltip {
    directionArrow: TaskbarTooltip.Up
    bottomTextMargin: triangleHeight + 8

    Component.onCompleted: {
        if (typeof launchButton !== "undefined") {
            parent = launchButton;
        }
    }
}
