import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AppMenu.
GalleryPage {
    knobs: [
        Knob { target: menu; property: "buttonEnabled" },
        Knob { target: menu; property: "buttonVisible" },
        Knob { target: menu; property: "buttonChecked" },
        Knob { target: menu; property: "caption" },
        Knob { target: menu; property: "buttonText" }
    ]

    Repeater {
        model: [
            { caption: "button checked", checked: true },
            { caption: "button disabled", disabled: true }
        ]

        Sample {
            id: sample

            required property var modelData

            caption: modelData.caption

            UiKitBase.AppMenu {
                width: 190
                logo: "qrc:/ui_kit/images/logo_big"
                caption: "Remote desktop"
                buttonText: "Settings"
                buttonChecked: sample.modelData.checked ?? false
                buttonEnabled: !sample.modelData.disabled
            }
        }
    }

    Sample {
        caption: "as the knobs have it"
        pose: "focused"

        UiKitBase.AppMenu {
            id: menu

            width: 190
            logo: "qrc:/ui_kit/images/logo_big"
            caption: "Remote desktop"
            buttonText: "Settings"
        }
    }
}
