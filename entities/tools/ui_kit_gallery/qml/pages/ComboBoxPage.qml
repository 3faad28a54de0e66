import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of ComboBox.
GalleryPage {
    id: root

    readonly property var countries: ["Brazil", "Bulgaria", "Chile", "Portugal", "Russia", "Spain"]

    knobs: [
        Knob { target: box; property: "isBlocked" },
        Knob { target: box; property: "currentIndex" }
    ]

    Sample {
        caption: "a list"

        UiKitBase.ComboBox {
            width: 280
            menuModel: root.countries
        }
    }

    Sample {
        caption: "isBlocked"

        UiKitBase.ComboBox {
            width: 280
            menuModel: root.countries
            isBlocked: true
        }
    }

    Sample {
        caption: "focused"
        pose: "focused"

        UiKitBase.ComboBox {
            width: 280
            menuModel: root.countries
            currentIndex: 2
        }
    }

    Sample {
        caption: "with a searchModel"

        UiKitBase.ComboBox {
            id: search

            width: 280
            textRole: "name"
            menuModel: gallery.countries
            searchModel: gallery.countries

            onTextChanged: gallery.countries.setFilter(text)
            onEditModeOnChanged: gallery.countries.setFilter("")
        }
    }

    Sample {
        caption: "as the knobs have it"

        UiKitBase.ComboBox {
            id: box

            menuModel: root.countries
        }
    }

    Sample {
        caption: gallery.bare ? "open" : "a short list"

        Item {
            width: 405
            height: gallery.bare ? 52 + 1 + 3 * 56 : 52

            UiKitBase.ComboBox {
                id: opened

                menuModel: root.countries.slice(0, 3)
                currentIndex: 1
            }
        }
    }

    // Once the window has its place.
    Timer {
        running: gallery.bare
        interval: 100

        onTriggered: poser.click(opened, Qt.point(10, 10))
    }
}
