import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of RoundedRect.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: shape; property: "drawTopLeftCorner" },
        Knob { target: shape; property: "drawTopRightCorner" },
        Knob { target: shape; property: "drawBottomRightCorner" },
        Knob { target: shape; property: "drawBottomLeftCorner" },
        Knob { target: shape; property: "radius" },
        Knob { target: shape; property: "color" }
    ]

    Repeater {
        model: [
            { caption: "by itself" },
            { caption: "left corners", right: false },
            { caption: "right corners", left: false },
            { caption: "translucent, border 6", color: "#808C8CFF", border: 6 }
        ]

        Sample {
            id: sample

            required property var modelData

            caption: modelData.caption
            captionColor: "white"

            UiKitBase.RoundedRect {
                width: 131
                height: 90
                color: sample.modelData.color ?? "#80000000"
                drawTopLeftCorner: sample.modelData.left ?? true
                drawBottomLeftCorner: sample.modelData.left ?? true
                drawTopRightCorner: sample.modelData.right ?? true
                drawBottomRightCorner: sample.modelData.right ?? true
                borderColor: sample.modelData.border ? "#8C8CFF" : "transparent"
                borderWidth: sample.modelData.border ?? 0
            }
        }
    }

    Sample {
        caption: "as the knobs have it"
        captionColor: "white"

        UiKitBase.RoundedRect {
            id: shape

            width: 300
            height: 90
            color: "#8C8CFF"
        }
    }
}
