import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of PushButton.
GalleryPage {
    id: root

    readonly property var looks: ["Normal", "Light", "Alternative"]

    knobs: [
        Knob { target: button; property: "state"; choices: root.looks },
        Knob { target: button; property: "enabled" },
        Knob { target: button; property: "text" },
        Knob { target: button; property: "hintText" },
        Knob { target: button; property: "fontPixelSize" },
        Knob { target: button; property: "radius" }
    ]

    Repeater {
        model: ["", "hovered", "pressed"]

        Repeater {
            id: poses

            required property string modelData

            model: root.looks

            Sample {
                id: sample

                required property string modelData

                caption: modelData + (pose ? ", " + pose : "")
                pose: poses.modelData

                UiKitBase.PushButton {
                    text: "Add certificate"
                    state: sample.modelData
                }
            }
        }
    }

    Sample {
        caption: "disabled"

        UiKitBase.PushButton {
            text: "Add certificate"
            enabled: false
        }
    }

    Sample {
        caption: "focused"
        pose: "focused"

        UiKitBase.PushButton {
            text: "Add certificate"
        }
    }

    Sample {
        caption: "hintText, as the knobs have it"

        UiKitBase.PushButton {
            id: button

            text: "Restart"
            hintText: "in one minute"
        }
    }
}
