import QtQuick

import ".."

// The page of CommonMenu.
GalleryPage {
    knobs: [
        Knob { target: menu; property: "menuCaption" },
        Knob { target: menu; property: "menuHoverEnabled" },
        Knob { target: menu; property: "currentMenuIndex" }
    ]

    Sample {
        caption: "as the knobs have it"

        Item {
            width: 318
            height: 320

            ExampleMenu {
                id: menu

                anchors.fill: parent
            }
        }
    }

    Sample {
        caption: "a row hovered"
        pose: "hovered"
        posePoint: Qt.point(100, 200)

        Item {
            width: 240
            height: 320

            ExampleMenu {
                anchors.fill: parent
                menuCaption: "Office"
            }
        }
    }
}
