import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of TextEdit.
GalleryPage {
    knobs: [
        Knob { target: input; property: "isEnabled" },
        Knob { target: input; property: "isEditable" },
        Knob { target: input; property: "errorVisible" },
        Knob { target: input; property: "showFocusBorder" },
        Knob { target: input; property: "resetButtonIsVisible" },
        Knob { target: input; property: "hintMessage" },
        Knob { target: input; property: "tooltipText" }
    ]

    Repeater {
        model: [
            { caption: "with text", defaultText: "terminal.example" },
            { caption: "empty", placeholderText: "Address of the server" },
            { caption: "focused", pose: "focused", defaultText: "terminal.example" },
            { caption: "error", defaultText: "terminal example", error: "No such server" },
            { caption: "not editable", defaultText: "terminal.example", readOnly: true },
            { caption: "not enabled", defaultText: "terminal.example", disabled: true },
            { caption: "hint", defaultText: "terminal.example", hint: "Without the scheme" }
        ]

        Sample {
            id: sample

            required property var modelData

            caption: modelData.caption
            pose: modelData.pose ?? ""

            UiKitBase.TextEdit {
                width: 280
                height: 124
                accessibleName: sample.caption
                defaultText: sample.modelData.defaultText ?? ""
                placeholderText: sample.modelData.placeholderText ?? ""
                isEditable: !sample.modelData.readOnly
                isEnabled: !sample.modelData.disabled
                errorMessage: sample.modelData.error ?? ""
                errorVisible: errorMessage !== ""
                hintMessage: sample.modelData.hint ?? ""
            }
        }
    }

    Sample {
        caption: "as the knobs have it"

        UiKitBase.TextEdit {
            id: input

            height: 124
            defaultText: "terminal.example"
            placeholderText: "Address of the server"
            errorMessage: "No such server"
            hintMessage: "Without the scheme"
            tooltipText: "As the administrator told it"
        }
    }
}
