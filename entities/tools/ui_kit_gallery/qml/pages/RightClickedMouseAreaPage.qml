import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of RightClickedMouseArea.
GalleryPage {
    Repeater {
        model: 3

        Sample {
            id: sample

            required property int index

            pose: index === 0 ? "focused" : ""
            caption: box.activeFocus ? "has the focus" : "click here with the right button"

            Rectangle {
                id: box

                width: 180
                height: 80
                radius: 12
                color: paletteProvider.palette ? paletteProvider.palette.contentBackground : "black"

                UiKitBase.Outline {
                    visible: box.activeFocus
                }

                UiKitBase.RightClickedMouseArea {
                    anchors.fill: parent
                }
            }
        }
    }
}
