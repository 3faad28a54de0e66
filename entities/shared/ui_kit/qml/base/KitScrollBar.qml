import QtQuick
import QtQuick.Controls.Basic

// A scroll bar with the kit's thumb.
ScrollBar {
    id: root

    property bool focusTrigger: false

    minimumSize: 0.05

    contentItem: ScrollHandle {
        implicitHeight: 6
        visible: root.size < 1
        focusTrigger: root.focusTrigger
    }
}
