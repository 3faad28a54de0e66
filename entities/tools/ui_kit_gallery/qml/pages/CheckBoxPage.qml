import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of CheckBox.
GalleryPage {
    knobs: [
        Knob { target: box; property: "enabled" },
        Knob { target: box; property: "checked" },
        Knob { target: box; property: "text" },
        Knob { target: box; property: "tooltipText" }
    ]

    Repeater {
        model: [false, true]

        Repeater {
            id: checks

            required property bool modelData

            model: ["", "hovered", "pressed", "disabled"]

            Sample {
                id: sample

                required property string modelData

                caption: (checks.modelData ? "checked" : "unchecked")
                         + (modelData ? ", " + modelData : "")
                pose: modelData

                UiKitBase.CheckBox {
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

        UiKitBase.CheckBox {
            width: 150
            text: "Remember me"
        }
    }

    Sample {
        width: 400
        caption: "as the knobs have it; the tooltip is that of a disabled box"

        UiKitBase.CheckBox {
            id: box

            width: 400
            text: "Use the proxy server of the office"
            tooltipText: "The administrator decides"
        }
    }
}
