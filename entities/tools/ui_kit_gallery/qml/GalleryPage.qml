import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase

// A page of the gallery: the samples of a component, and under them the knobs that turn one of them.
Item {
    id: root

    // The component that the page shows.
    property string name: gallery.pageName
    // What the samples lie on; the components of the taskbar know dark ground only.
    property color ground: paletteProvider.palette ? paletteProvider.palette.backgroundSubPrimary
                                                   : "#131414"
    default property alias samples: samples.data
    property alias knobs: knobs.data
    readonly property int bareHeight: samples.height + 2 * 24
    readonly property Item focusItem: Window.activeFocusItem

    // Moves the samples so that what has the focus is in sight.
    onFocusItemChanged: {
        for (let item = focusItem; item; item = item.parent) {
            if (item === samples) {
                const top = focusItem.mapToItem(samples, 0, 0).y;
                const bottom = top + focusItem.height + 2 * samples.y;
                view.contentY = Math.max(Math.min(view.contentY, top), bottom - view.height, 0);
                return;
            }
        }
    }

    implicitWidth: 668
    implicitHeight: bareHeight

    Accessible.role: Accessible.Pane
    Accessible.name: name

    UiKitBase.TextLabel {
        id: title

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.leftMargin: 16
        anchors.topMargin: 12
        width: 620
        horizontalAlignment: Text.AlignLeft
        visible: !gallery.bare
        text: root.name
        color: "white"
        font.pixelSize: 20
        font.weight: Font.DemiBold
    }

    UiKitBase.TextPromt {
        id: about

        anchors.left: title.left
        anchors.top: title.bottom
        width: 620
        horizontalAlignment: Text.AlignLeft
        visible: !gallery.bare
        text: gallery.about(root.name)
        color: "#B2FFFFFF"
        font.pixelSize: 12
    }

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: gallery.bare ? 0 : 76
        anchors.leftMargin: gallery.bare ? 0 : 16
        anchors.rightMargin: gallery.bare ? 0 : 16
        anchors.bottomMargin: gallery.bare ? 0 : 16
        radius: gallery.bare ? 0 : 12
        color: root.ground

        Flickable {
            id: view

            anchors.top: parent.top
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: panel.top
            contentHeight: root.bareHeight
            interactive: !gallery.bare && contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            clip: !gallery.bare

            Basic.ScrollBar.vertical: UiKitBase.KitScrollBar {
                policy: view.interactive ? Basic.ScrollBar.AlwaysOn : Basic.ScrollBar.AlwaysOff
            }

            Flow {
                id: samples

                x: 24
                y: 24
                width: root.width - (gallery.bare ? 0 : 2 * 16) - 2 * x
                spacing: 24
            }
        }

        Rectangle {
            id: panel

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: gallery.bare || knobs.children.length === 0 ? 0 : knobs.height + 2 * 12
            visible: height > 0
            radius: 12
            color: paletteProvider.palette ? paletteProvider.palette.backgroundSecondary : "#242424"

            Flow {
                id: knobs

                x: 24
                y: 12
                width: parent.width - 2 * x
                spacing: 12
            }
        }
    }
}
