import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AppButtonTooltip.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: tooltip; property: "text" }
    ]

    Sample {
        caption: "under its button"
        captionColor: "white"

        Item {
            width: 300
            height: 100

            UiKitBase.AppButton {
                id: launchButton

                x: 40
                imageSource: "qrc:/ui_kit/images/calendar"
                windowsCount: 1
            }

            UiKitBase.AppButtonTooltip {
                id: tooltip

                x: (launchButton.width - width) / 2
                y: launchButton.height + 4
                text: "Calendar"
            }
        }
    }

    Sample {
        caption: "an empty text shows nothing"
        captionColor: "white"

        Item {
            width: 200
            height: 40

            UiKitBase.AppButtonTooltip {
                parent: parent
            }
        }
    }
}
