import QtQuick
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of TooltipTextWindow.
GalleryPage {
    id: root

    property bool popups: gallery.bare

    knobs: [
        Knob { target: beside; property: "text" },
        Knob { target: root; property: "popups" }
    ]

    Sample {
        caption: "transposed: beside the point"

        Point {
            id: left

            UiKitBase.TooltipTextWindow {
                id: beside

                transientParent: root.Window.window
                opacity: 1
                transposed: true
                text: "10.0.0.1\n10.0.0.2\n10.0.0.3"
            }
        }
    }

    Sample {
        caption: "not transposed: above it"

        Point {
            id: right

            UiKitBase.TooltipTextWindow {
                id: above

                transientParent: root.Window.window
                opacity: 1
                text: "10.0.0.1"
            }
        }
    }

    // Once the window has its place.
    Timer {
        running: root.popups
        interval: 100

        onTriggered: {
            beside.showOnGlobalCoords(left.mapToGlobal(0, 50));
            above.showOnGlobalCoords(right.mapToGlobal(100, 50));
        }
    }

    component Point: Item {
        width: 274
        height: 110

        Rectangle {
            x: 0
            y: 48
            width: 4
            height: 4
            radius: 2
            color: "#F34257"
        }
    }
}
