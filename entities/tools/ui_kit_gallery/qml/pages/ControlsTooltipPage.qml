import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of ControlsTooltip.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: tooltip; property: "text" },
        Knob { target: tooltip; property: "radius" },
        Knob { target: tooltip; property: "triangleHeight" },
        Knob { target: tooltip; property: "state"; choices: ["Visible", "Invisible"] }
    ]

    Sample {
        caption: "by itself"
        captionColor: "white"

        Item {
            width: 260
            height: 60

            UiKitBase.ControlsTooltip {
                x: 0
                y: 0
                text: "As a control has it"
                state: "Visible"
            }
        }
    }

    Sample {
        caption: "radius 12 on #050505, as the knobs have it"
        captionColor: "white"

        Item {
            width: 300
            height: 60

            UiKitBase.ControlsTooltip {
                id: tooltip

                x: 0
                y: 0
                text: "The administrator decides"
                color: "#050505"
                radius: 12
                state: "Visible"
            }
        }
    }
}
