import QtQuick
import QtQuick.Controls.Basic

// A menu over a control, or under it where the taskbar stands at the top. Its entries are MenuEntry.
Popup {
    id: root

    function toggle() {
        if (opened) {
            close();
        } else {
            open();
        }
    }

    y: powerControl.isTaskbarOnBottomPosition ? -height - 12 : parent.height + 12
    margins: 8
    padding: 12
    focus: true
    // A press on the control reaches the control, which closes the menu by itself.
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutsideParent

    background: Rectangle {
        radius: 24
        color: paletteProvider.palette.backgroundSecondary
    }

    contentItem: Column {
        spacing: 8
    }
}
