import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of CommonWindow.
GalleryPage {
    knobs: [
        Knob { target: frame; property: "isVisible" }
    ]

    Sample {
        caption: "with a menu and a page, at half its size"

        Item {
            width: 509
            height: 290

            UiKitBase.CommonWindow {
                id: frame

                scale: 0.5
                transformOrigin: Item.TopLeft
                focus: false
                menuSource: ExampleMenu {}
                pageSource: "qrc:/ui_kit_gallery/ExamplePage.qml"
            }
        }
    }

    Sample {
        caption: "without a menu"

        Item {
            width: 509
            height: 290

            UiKitBase.CommonWindow {
                scale: 0.5
                transformOrigin: Item.TopLeft
                focus: false
                pageSource: "qrc:/ui_kit_gallery/ExamplePage.qml"
            }
        }
    }
}
