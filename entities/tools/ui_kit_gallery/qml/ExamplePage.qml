import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// A page with as much on it as is needed to see where it is.
Item {
    Rectangle {
        anchors.fill: parent
        anchors.margins: 24
        anchors.topMargin: 64
        radius: 12
        color: paletteProvider.palette ? paletteProvider.palette.backgroundSubPrimary : "#131414"

        UiKitBase.TextLabel {
            anchors.centerIn: parent
            text: "The page"
        }
    }
}
