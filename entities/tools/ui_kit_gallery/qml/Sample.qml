import QtQuick
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase

// A component in one of its states, with the state's name over it.
Column {
    id: root

    property alias caption: caption.text
    // What is done to the component: "hovered", "pressed", "focused" or nothing.
    property string pose
    // Where the mouse is in a pose.
    property point posePoint: Qt.point(10, 10)
    property alias captionColor: caption.color
    default property alias component: place.data

    spacing: 8

    UiKitBase.TextPromt {
        id: caption

        anchors.left: parent.left
        color: paletteProvider.palette ? paletteProvider.palette.contentSecondary : "#8FFFFFFF"
        font.pixelSize: 12
        wrapMode: Text.NoWrap
    }

    Item {
        id: place

        anchors.left: parent.left
        width: childrenRect.width
        height: childrenRect.height
    }

    // Once the window is there.
    Timer {
        running: root.pose !== "" && root.Window.active
        interval: 1

        onTriggered: {
            const item = place.children[0];
            switch (root.pose) {
            case "hovered":
                poser.hover(item, root.posePoint);
                break;
            case "pressed":
                poser.press(item, root.posePoint);
                break;
            case "focused":
                poser.focus(item);
                break;
            }
        }
    }
}
