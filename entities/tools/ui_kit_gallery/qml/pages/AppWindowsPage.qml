import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of AppWindows.
GalleryPage {
    ground: "#5A6470"
    knobs: [
        Knob { target: list; property: "maxItemsCount" }
    ]

    Sample {
        caption: "a long title, hovered"
        captionColor: "white"
        pose: "hovered"
        posePoint: Qt.point(100, 82)

        UiKitBase.AppWindows {
            appWindowsModel: ListModel {
                ListElement {
                    windowTitle: "Letters"
                    windowId: 1
                    appId: "mail"
                }

                ListElement {
                    windowTitle: "Letter to the landlord about the water in the kitchen"
                    windowId: 2
                    appId: "mail"
                }
            }
        }
    }

    Sample {
        caption: list.chosen
        captionColor: "white"

        UiKitBase.AppWindows {
            id: list

            property string chosen: "more than fit, as the knob has it"

            maxItemsCount: 5
            appWindowsModel: many

            onSelectAppWindow: windowId => chosen = `window ${windowId} selected`
        }
    }

    ListModel {
        id: many

        Component.onCompleted: {
            for (let id = 1; id <= 20; ++id) {
                append({ windowTitle: `Document ${id}`, windowId: id, appId: "office" });
            }
        }
    }
}
