import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of CloseButton.
GalleryPage {
    ground: "#242424"
    knobs: [
        Knob { target: button; property: "buttonSize" },
        Knob { target: button; property: "iconSize" },
        Knob { target: button; property: "radius" }
    ]

    Repeater {
        model: ["", "hovered", "focused"]

        Sample {
            required property string modelData

            width: 100
            caption: modelData || "at rest"
            captionColor: "#8FFFFFFF"
            pose: modelData

            UiKitBase.CloseButton {}
        }
    }

    Sample {
        caption: "another icon, as the knobs have it"
        captionColor: "#8FFFFFFF"

        UiKitBase.CloseButton {
            id: button

            defaultIcon: "qrc:/ui_kit/images/backbutton/back_icon"
            iconSize: 20
            buttonSize: 56
        }
    }
}
