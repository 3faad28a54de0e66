import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AppButton.
GalleryPage {
    ground: "#292521"
    knobs: [
        Knob { target: button; property: "windowsCount" },
        Knob { target: button; property: "visible" }
    ]

    Repeater {
        model: [0, 1, 2, 9]

        Sample {
            id: sample

            required property int modelData

            width: 80
            caption: `${modelData} windows`
            captionColor: "#8FFFFFFF"

            UiKitBase.AppButton {
                imageSource: "qrc:/ui_kit/images/calendar"
                windowsCount: sample.modelData
            }
        }
    }

    Sample {
        width: 80
        caption: "focused"
        captionColor: "#8FFFFFFF"
        pose: "focused"

        UiKitBase.AppButton {
            id: button

            imageSource: "qrc:/ui_kit/images/settings_gear"
            windowsCount: 1
        }
    }
}
