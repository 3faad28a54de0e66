import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// A side menu of three pages.
UiKitBase.CommonMenu {
    menuCaption: "Settings"
    menuModel: ListModel {
        ListElement {
            name: "Network"
            componentUrlFromModel: "network.qml"
        }

        ListElement {
            name: "Language"
            componentUrlFromModel: "language.qml"
        }

        ListElement {
            name: "About the terminal"
            componentUrlFromModel: "about.qml"
        }
    }
}
