import QtQuick
import "qrc:/ui_kit/qml/base/" as UiKitBase

// The kit's side of the rows about controls: each property makes one, with all that shows of it.
QtObject {
    readonly property Component pushButton: UiKitBase.PushButton {
        text: "Add a certificate"
    }
    readonly property Component iconButton: UiKitBase.IconButton {
        width: 24
        height: 24
        icon.source: "qrc:/ui_kit/images/left"
        text: "Previous"
    }
    readonly property Component closeButton: UiKitBase.CloseButton {}
    readonly property Component appButton: UiKitBase.AppButton {
        imageSource: "qrc:/ui_kit/images/tvo_logo"
        windowsCount: 2
    }
    readonly property Component moreMenu: UiKitBase.MoreMenu {
        menuItemsModel: fewRows
    }
    readonly property Component checkBox: UiKitBase.CheckBox {
        checked: true
        text: "Remember the choice"
    }
    readonly property Component radioButton: UiKitBase.RadioButton {
        checked: true
        text: "Remember the choice"
    }
    readonly property Component slideButton: UiKitBase.SlideButton {
        checked: true
        text: "Remember the choice"
    }
    readonly property Component lineEdit: UiKitBase.LineEdit {
        defaultText: "desktop.example.net"
        placeholderText: "Address"
    }
    readonly property Component textEdit: UiKitBase.TextEdit {
        defaultText: longText
    }
    readonly property Component comboBox: UiKitBase.ComboBox {
        menuModel: ["Ethernet", "Wireless", "Modem"]
    }
    readonly property Component datePicker: Item {
        UiKitBase.DatePicker {
            visible: true
        }
    }
    readonly property Component scrollingText: UiKitBase.ScrollingText {
        width: 405
        height: 200
        text: longText
    }
    readonly property Component manualScrollingText: UiKitBase.ManualScrollingText {
        Component.onCompleted: insertTextToBack(longText)
    }
    readonly property Component controlsTooltip: Item {
        UiKitBase.ControlsTooltip {
            text: "What the control is for"
            visible: true
        }
    }
    readonly property Component kitScrollBar: UiKitBase.KitScrollBar {
        height: 200
        size: 0.5
        policy: UiKitBase.KitScrollBar.AlwaysOn
    }
    readonly property Component textLabel: UiKitBase.TextLabel {
        text: "The certificate is not trusted"
    }
    readonly property Component textPromt: UiKitBase.TextPromt {
        text: "The certificate is not trusted"
    }
    readonly property Component commonMenu: UiKitBase.CommonMenu {
        width: 318
        height: 400
        menuCaption: "Settings"
        menuModel: fewRows
    }
    readonly property Component appMenu: UiKitBase.AppMenu {
        width: 318
        logo: "qrc:/ui_kit/images/logo_big"
        caption: "Terminal"
        buttonText: "Settings"
    }
    readonly property Component appWindows: UiKitBase.AppWindows {
        appWindowsModel: fewRows
    }
    readonly property Component appWindowsOfMany: UiKitBase.AppWindows {
        appWindowsModel: manyRows
    }
    readonly property Component altTab: UiKitBase.AltTab {
        width: 800
        height: 260
        appsModel: fewRows
    }
}
