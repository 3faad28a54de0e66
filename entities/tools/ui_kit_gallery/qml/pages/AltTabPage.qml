import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AltTab.
GalleryPage {
    ground: "#5A6470"

    Sample {
        caption: "one window"
        captionColor: "white"

        UiKitBase.AltTab {
            width: 580
            height: 260
            appsModel: ListModel {
                ListElement {
                    path: "qrc:/ui_kit/images/logo_big"
                    windowTitle: "About"
                    windowId: 1
                }
            }
        }
    }

    Sample {
        caption: strip.chosen
        captionColor: "white"
        pose: "focused"

        UiKitBase.AltTab {
            id: strip

            property string chosen: "more than fit"

            width: 580
            height: 260
            appsModel: ListModel {
                ListElement {
                    path: "qrc:/ui_kit/images/critical_icon"
                    windowTitle: "A failure"
                    windowId: 1
                }

                ListElement {
                    path: "qrc:/ui_kit/images/tvo_logo"
                    windowTitle: "Letter to the landlord"
                    windowId: 2
                }

                ListElement {
                    path: "qrc:/ui_kit/images/logo_big"
                    windowTitle: "About"
                    windowId: 3
                }
            }

            onSelectApp: windowId => chosen = `window ${windowId} selected`
            onHideAltTab: chosen = "the mouse has left"
        }
    }
}
