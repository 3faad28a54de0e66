import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of ManualScrollingText.
GalleryPage {
    knobs: [
        Knob { target: view; property: "viewScrollPart" },
        Knob { target: view; property: "textMargin" },
        Knob { target: view; property: "radius" },
        UiKitBase.PushButton {
            height: 40
            text: "To the end"
            state: "Alternative"

            onClicked: view.scrollToEnd()
        }
    ]

    Sample {
        caption: "as the knobs have it; scrolled to " + view.position.toFixed(2)

        UiKitBase.ManualScrollingText {
            id: view

            property real position: 0

            width: 580
            height: 240

            onScrollChanged: newPosition => view.position = newPosition

            Component.onCompleted: {
                for (let line = 1; line <= 40; ++line) {
                    insertTextToBack(`${line} session opened\n`);
                }
            }
        }
    }
}
