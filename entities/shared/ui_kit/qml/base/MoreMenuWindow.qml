import QtQuick
import QtQuick.Window

// The popup window of a button's actions. It never takes the keyboard: who opens it moves in it.
Window {
    id: root

    property alias model: list.model
    property alias currentIndex: list.currentIndex

    signal chosen(index: int)

    function openAt(position: point) {
        x = position.x;
        y = position.y;
        list.currentIndex = -1;
        show();
    }

    // Whether the key meant something to the list.
    function handleKey(key: int) : bool {
        switch (key) {
        case Qt.Key_Down:
            list.incrementCurrentIndex();
            return true;
        case Qt.Key_Up:
            list.decrementCurrentIndex();
            return true;
        case Qt.Key_Escape:
            hide();
            return true;
        case Qt.Key_Enter:
        case Qt.Key_Return:
        case Qt.Key_Space:
            if (list.currentIndex >= 0) {
                root.chosen(list.currentIndex);
            }
            return true;
        }
        return false;
    }

    flags: Qt.ToolTip
    color: "transparent"
    width: 150
    // Nothing is to be seen without rows. The one pixel is for the Wayland compositor, which ends a
    // program that asks for a popup without height.
    height: list.count > 0 ? 48 * list.count + 4 * (list.count - 1) : 1

    Rectangle {
        anchors.fill: parent
        visible: list.count > 0
        radius: 12
        color: "#171F1D"
    }

    ListView {
        id: list

        anchors.fill: parent
        spacing: 4
        interactive: false
        keyNavigationWraps: true

        Accessible.role: Accessible.PopupMenu

        delegate: Item {
            id: row

            required property int index
            required property string menuItemText

            width: ListView.view.width
            height: 48

            Accessible.role: Accessible.MenuItem
            Accessible.name: menuItemText
            Accessible.onPressAction: root.chosen(row.index)

            RoundedRect {
                anchors.fill: parent
                anchors.margins: 4
                radius: 12
                color: {
                    if (mouseArea.containsMouse || row.ListView.isCurrentItem) {
                        return "#1C1926";
                    }
                    return "transparent";
                }

                TextLabel {
                    anchors.centerIn: parent
                    text: row.menuItemText
                    color: "#FFFFFFFA"
                    wrapMode: Text.NoWrap
                    Accessible.ignored: true
                }

                MouseArea {
                    id: mouseArea

                    anchors.fill: parent
                    hoverEnabled: true

                    onClicked: root.chosen(row.index)
                }
            }
        }
    }
}
