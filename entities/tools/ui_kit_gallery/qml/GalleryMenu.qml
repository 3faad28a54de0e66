import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// The side of the gallery's window: the list of pages, and which palette they are shown in.
Item {
    Keys.onPressed: event => menu.Keys.pressed(event)

    UiKitBase.CommonMenu {
        id: menu

        anchors.top: parent.top
        anchors.bottom: palettes.top
        anchors.bottomMargin: 12
        anchors.left: parent.left
        anchors.right: parent.right
        menuCaption: "UI kit"
        menuModel: gallery.pages

        onItemActivated: (pageUrl, pageIndex) => gallery.pageIndex = pageIndex

        Component.onCompleted: currentMenuIndex = gallery.pageIndex
    }

    Column {
        id: palettes

        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.leftMargin: 24
        anchors.bottomMargin: 24
        spacing: 12

        UiKitBase.TextPromt {
            anchors.left: parent.left
            text: "Palette"
        }

        Choice {
            choices: paletteProvider.names
            current: paletteProvider.name

            onChosen: value => paletteProvider.name = value
        }
    }
}
