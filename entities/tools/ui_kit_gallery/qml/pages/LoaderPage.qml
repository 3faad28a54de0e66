import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of Loader.
GalleryPage {
    ground: "#242424"
    knobs: [
        Knob { target: loader; property: "running" },
        Knob { target: loader; property: "speed" },
        Knob { target: loader; property: "loaderSize"; choices: ["Big", "Small"] }
    ]

    Sample {
        caption: "Big"
        captionColor: "#8FFFFFFF"

        UiKitBase.Loader {
            running: !gallery.still
        }
    }

    Sample {
        caption: "Small"
        captionColor: "#8FFFFFFF"

        UiKitBase.Loader {
            running: !gallery.still
            loaderSize: "Small"
        }
    }

    Sample {
        caption: "as the knobs have it"
        captionColor: "#8FFFFFFF"

        UiKitBase.Loader {
            id: loader

            running: !gallery.still
            speed: 60
        }
    }
}
