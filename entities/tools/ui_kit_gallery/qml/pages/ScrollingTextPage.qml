import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of ScrollingText.
GalleryPage {
    id: root

    readonly property string agreement: Array(12).fill(
        "The terminal shows what the server sends and keeps nothing of it.").join("\n\n")

    knobs: [
        Knob { target: view; property: "text" }
    ]

    Sample {
        caption: "a text that fits"

        UiKitBase.ScrollingText {
            width: 270
            height: 200
            text: "One line."
        }
    }

    Sample {
        caption: "focused, as the knobs have it"
        pose: "focused"

        UiKitBase.ScrollingText {
            id: view

            width: 270
            height: 200
            text: root.agreement
        }
    }
}
