import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of Toast.
GalleryPage {
    id: root

    readonly property string address: "https://updates.terminal.example/stable/2027/packages/"

    knobs: [
        Knob { target: toast; property: "isError" },
        Knob { target: toast; property: "message" },
        Knob { target: toast; property: "maxTextWidth" },
        Knob { target: toast; property: "maxLinesCount" }
    ]

    Sample {
        caption: "a notice"

        UiKitBase.Toast {
            message: "The settings are saved"
        }
    }

    Sample {
        caption: "isError"

        UiKitBase.Toast {
            isError: true
            message: "The server does not answer"
        }
    }

    Sample {
        caption: "elided in the middle"

        UiKitBase.Toast {
            maxTextWidth: 220
            message: root.address
        }
    }

    Sample {
        caption: "two lines, as the knobs have it"

        UiKitBase.Toast {
            id: toast

            isError: true
            maxTextWidth: 240
            maxLinesCount: 2
            message: "The package could not be read from " + root.address
        }
    }
}
