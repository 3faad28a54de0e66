import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of RadioButton.
GalleryPage {
    knobs: [
        Knob { target: button; property: "enabled" },
        Knob { target: button; property: "checked" },
        Knob { target: button; property: "text" }
    ]

    Repeater {
        model: [false, true]

        Repeater {
            id: checks

            required property bool modelData

            model: ["", "pressed", "disabled"]

            Sample {
                id: sample

                required property string modelData

                caption: (checks.modelData ? "checked" : "unchecked")
                         + (modelData ? ", " + modelData : "")
                pose: modelData

                UiKitBase.RadioButton {
                    autoExclusive: false
                    checked: checks.modelData
                    enabled: sample.modelData !== "disabled"
                    Accessible.name: sample.caption
                }
            }
        }
    }

    Sample {
        width: 200
        caption: "focused"
        pose: "focused"

        UiKitBase.RadioButton {
            width: 150
            autoExclusive: false
            checked: true
            text: "Automatic"
        }
    }

    Sample {
        width: 380
        caption: "as the knobs have it"

        UiKitBase.RadioButton {
            id: button

            width: 380
            autoExclusive: false
            text: "Ask before each connection"
        }
    }
}
