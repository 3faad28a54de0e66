import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of ScrollHandle.
GalleryPage {
    knobs: [
        Knob { target: handle; property: "focusTrigger" },
        Knob { target: handle; property: "width" }
    ]

    Sample {
        width: 150
        caption: "at rest"

        UiKitBase.ScrollHandle {
            height: 120
        }
    }

    Sample {
        width: 150
        caption: "focusTrigger"

        UiKitBase.ScrollHandle {
            height: 120
            focusTrigger: true
        }
    }

    Sample {
        width: 150
        caption: "as the knobs have it"

        UiKitBase.ScrollHandle {
            id: handle

            width: 12
            height: 120
        }
    }
}
