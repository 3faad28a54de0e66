import QtQuick
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase

Window {
    x: 30
    y: 40
    width: 640
    height: 480
    visible: true
    flags: Qt.FramelessWindowHint
    color: "#404040"

    UiKitBase.MoreMenu {
        x: 200
        y: 100
        menuItemsModel: ListModel {
            ListElement {
                menuItemText: "First"
            }

            ListElement {
                menuItemText: "Second"
            }
        }

        onClicked: menuIdx => console.log("chosen", menuIdx)
    }

    UiKitBase.MoreMenu {
        x: 200
        y: 400
        menuItemsModel: ListModel {}
    }

    UiKitBase.DnsMultilineText {
        x: 20
        y: 300
        width: 100
        height: 60
        dnsServerList: ["10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4"]
    }
}
