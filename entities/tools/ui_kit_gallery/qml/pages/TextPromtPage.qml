import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of TextPromt.
GalleryPage {
    knobs: [
        Knob { target: label; property: "text" },
        Knob { target: label; property: "width" }
    ]

    Sample {
        caption: "by itself"

        UiKitBase.TextPromt {
            text: "The server is not known to this terminal."
        }
    }

    Sample {
        caption: "wrapped, as the knobs have it"

        UiKitBase.TextPromt {
            id: label

            width: 180
            text: "The server is not known to this terminal."
        }
    }
}
