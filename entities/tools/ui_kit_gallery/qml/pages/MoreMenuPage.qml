import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of MoreMenu.
GalleryPage {
    ground: "#242424"

    Sample {
        width: 200
        caption: "at rest"
        captionColor: "#8FFFFFFF"

        UiKitBase.MoreMenu {
            menuItemsModel: actions
        }
    }

    Sample {
        id: opened

        property string clicks: gallery.bare ? "focused and open" : "focused"

        width: 250
        caption: clicks
        pose: "focused"
        captionColor: "#8FFFFFFF"

        Item {
            width: 200
            height: 170

            UiKitBase.MoreMenu {
                id: menu

                menuItemsModel: actions

                onClicked: index => opened.clicks = `row ${index} clicked`
            }
        }
    }

    ListModel {
        id: actions

        ListElement {
            menuItemText: "Rename"
        }

        ListElement {
            menuItemText: "Copy"
        }

        ListElement {
            menuItemText: "Remove"
        }
    }

    // Once the window has its place.
    Timer {
        running: gallery.bare
        interval: 100

        onTriggered: poser.click(menu, Qt.point(10, 10))
    }
}
