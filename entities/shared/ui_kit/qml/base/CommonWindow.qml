import QtQuick

// The frame of a program with more than one page: a side menu, the page, a button that closes it.
Item {
    id: root

    property var pal: paletteProvider.palette
    property Component menuSource
    property url pageSource
    property bool isVisible: true
    property alias buttonIconSource: closeButton.defaultIcon

    signal closeActivated

    implicitWidth: 1018
    implicitHeight: 580
    focus: true

    Keys.onEscapePressed: closeButton.activated()
    Keys.onPressed: event => {
        const turnsPage = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        event.accepted = false;
        if (turnsPage && (event.modifiers & Qt.AltModifier) && menuLoader.item) {
            menuLoader.item.Keys.pressed(event);
        }
    }

    Rectangle {
        id: background

        anchors.fill: parent
        radius: 16
        color: root.pal ? root.pal.backgroundBase : "#D6212529"
    }

    // The menu, the page and the button lie side by side without a row around them: each stays a
    // direct child, and Tab goes from one to the next.
    RoundedRect {
        id: menu

        anchors.left: parent.left
        width: 318
        height: 580
        visible: root.menuSource !== null
        color: root.pal ? root.pal.backgroundPrimary : "black"
        radius: background.radius
        drawTopLeftCorner: !LayoutMirroring.enabled
        drawBottomLeftCorner: !LayoutMirroring.enabled
        drawTopRightCorner: LayoutMirroring.enabled
        drawBottomRightCorner: LayoutMirroring.enabled

        Loader {
            id: menuLoader

            anchors.fill: parent
            sourceComponent: root.menuSource
        }
    }

    Item {
        anchors.left: menu.right
        width: 700
        height: 580

        Loader {
            anchors.fill: parent
            active: root.isVisible
            source: root.pageSource
        }
    }

    CloseButton {
        id: closeButton

        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 8

        onActivated: root.closeActivated()
    }
}
