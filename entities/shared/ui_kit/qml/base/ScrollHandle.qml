import QtQuick

// The thumb of a scroll bar.
Rectangle {
    id: root

    property var pal: paletteProvider.palette
    property bool focusTrigger: false

    implicitWidth: 6
    radius: width / 2
    color: {
        if (root.focusTrigger) {
            return root.pal ? root.pal.contentPrimary : "#131414";
        }
        return root.pal ? root.pal.contentSecondary : "#1c2926";
    }
}
