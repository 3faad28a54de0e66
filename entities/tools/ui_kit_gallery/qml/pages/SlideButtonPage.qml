import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of SlideButton.
GalleryPage {
    ground: "#242424"
    knobs: [
        Knob { target: card; property: "enable" },
        Knob { target: card; property: "checked" },
        Knob { target: card; property: "progress" },
        Knob { target: card; property: "hasStateIcon" },
        Knob { target: card; property: "text" },
        Knob { target: card; property: "description" }
    ]

    Repeater {
        model: [
            { caption: "unchecked", description: "Off" },
            { caption: "checked", checked: true, description: "Connected" },
            { caption: "checked, progress", checked: true, progress: true,
              description: "Connecting" },
            { caption: "disabled", disabled: true, description: "Off" },
            { caption: "hasStateIcon", hasStateIcon: true, checked: true,
              description: "Connected" },
            { caption: "focused", pose: "focused", description: "Off" }
        ]

        Sample {
            id: sample

            required property var modelData

            caption: modelData.caption
            captionColor: "#8FFFFFFF"
            pose: modelData.pose ?? ""

            UiKitBase.SlideButton {
                width: 274
                text: "Private network"
                description: sample.modelData.description
                checked: sample.modelData.checked ?? false
                progress: sample.modelData.progress ?? false
                enable: !sample.modelData.disabled
                hasStateIcon: sample.modelData.hasStateIcon ?? false
                checkedImageSource: "qrc:/ui_kit/images/calendar"
                uncheckedImageSource: "qrc:/ui_kit/images/warning_icon_white"
            }
        }
    }

    Sample {
        caption: "as the knobs have it, with an owner that follows"
        captionColor: "#8FFFFFFF"

        UiKitBase.SlideButton {
            id: card

            text: "Private network"
            description: "The office is reached through it"
            checkedImageSource: "qrc:/ui_kit/images/calendar"
            uncheckedImageSource: "qrc:/ui_kit/images/warning_icon_white"

            onClicked: checked = !checked
        }
    }
}
