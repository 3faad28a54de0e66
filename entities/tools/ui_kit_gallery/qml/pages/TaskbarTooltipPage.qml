import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of TaskbarTooltip.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: tooltip; property: "radius" },
        Knob { target: tooltip; property: "triangleHeight" },
        Knob { target: tooltip; property: "triangleVertex" },
        Knob { target: tooltip; property: "color" },
        Knob { target: tooltip; property: "state"; choices: ["Visible", "Invisible"] }
    ]

    Repeater {
        model: [
            { caption: "Up", direction: UiKitBase.TaskbarTooltip.Up },
            { caption: "Down", direction: UiKitBase.TaskbarTooltip.Down },
            { caption: "Left", direction: UiKitBase.TaskbarTooltip.Left },
            { caption: "Right", direction: UiKitBase.TaskbarTooltip.Right }
        ]

        Sample {
            id: sample

            required property var modelData

            caption: modelData.caption
            captionColor: "white"

            UiKitBase.TaskbarTooltip {
                width: 131
                height: 60
                directionArrow: sample.modelData.direction
            }
        }
    }

    Sample {
        caption: "a triangle of 16 at 40, as the knobs have it"
        captionColor: "white"

        UiKitBase.TaskbarTooltip {
            id: tooltip

            width: 280
            height: 80
            triangleHeight: 16
            triangleVertex: 40
        }
    }
}
