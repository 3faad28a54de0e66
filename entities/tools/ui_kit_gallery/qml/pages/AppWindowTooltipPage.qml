import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AppWindowTooltip.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: tooltip; property: "text" }
    ]

    Sample {
        caption: "narrower than 290"
        captionColor: "white"

        UiKitBase.AppWindowTooltip {
            text: "Letter to the landlord"
        }
    }

    Sample {
        caption: "wrapped at 290, as the knobs have it"
        captionColor: "white"

        UiKitBase.AppWindowTooltip {
            id: tooltip

            text: "Letter to the landlord about the water that comes through the ceiling of the kitchen"
        }
    }
}
