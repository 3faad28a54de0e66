import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of TextLabel.
GalleryPage {
    knobs: [
        Knob { target: label; property: "text" },
        Knob { target: label; property: "width" }
    ]

    Sample {
        caption: "by itself"

        UiKitBase.TextLabel {
            text: "Certificate of the server"
        }
    }

    Sample {
        caption: "wrapped, as the knobs have it"

        UiKitBase.TextLabel {
            id: label

            width: 120
            text: "Certificate of the server"
        }
    }
}
