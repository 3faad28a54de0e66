import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of Outline.
GalleryPage {
    knobs: [
        Knob { target: outline; property: "outlineRadius" },
        Knob { target: outline; property: "visible" }
    ]

    Sample {
        width: 200
        caption: "its parent's radius and 4"

        Box {
            radius: 16

            UiKitBase.Outline {}
        }
    }

    Sample {
        width: 200
        caption: "around what has no radius"

        Item {
            width: 150
            height: 52

            UiKitBase.Outline {}
        }
    }

    Sample {
        width: 150
        caption: "as the knobs have it"

        Box {
            UiKitBase.Outline {
                id: outline

                outlineRadius: 12
            }
        }
    }

    component Box: Rectangle {
        width: 150
        height: 52
        color: paletteProvider.palette ? paletteProvider.palette.contentBackground : "black"
    }
}
