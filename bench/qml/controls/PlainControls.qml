import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// The peers in the rows about controls: what the kit's controls are built on, as Qt brings it, in the
// same sizes and with the same texts and images.
QtObject {
    readonly property Component pushButton: Button {
        width: 190
        height: 52
        text: "Add a certificate"
    }
    readonly property Component iconButton: Button {
        width: 24
        height: 24
        padding: 0
        flat: true
        display: AbstractButton.IconOnly
        icon.source: "qrc:/ui_kit/images/left"
        icon.width: 20
        icon.height: 20
        text: "Previous"
    }
    readonly property Component closeButton: Button {
        width: 40
        height: 40
        display: AbstractButton.IconOnly
        icon.source: "qrc:/ui_kit/images/close_icon"
        icon.width: 16
        icon.height: 16
    }
    readonly property Component appButton: Button {
        width: 40
        height: 48
        padding: 0
        flat: true
        display: AbstractButton.IconOnly
        icon.source: "qrc:/ui_kit/images/tvo_logo"
        icon.width: 40
        icon.height: 40
    }
    readonly property Component moreMenu: Button {
        width: 20
        height: 20
        padding: 0
        flat: true
        display: AbstractButton.IconOnly
        icon.source: "qrc:/ui_kit/images/more_menu"
        icon.width: 20
        icon.height: 20
        text: "More"
    }
    readonly property Component checkBox: CheckBox {
        checked: true
        text: "Remember the choice"
    }
    readonly property Component radioButton: RadioButton {
        checked: true
        text: "Remember the choice"
    }
    readonly property Component slideButton: Item {
        width: 405
        height: 58

        Label {
            text: "Remember the choice"
        }

        Switch {
            anchors.right: parent.right
            checked: true
        }
    }
    readonly property Component lineEdit: TextField {
        width: 405
        height: 52
        text: "desktop.example.net"
        placeholderText: "Address"
    }
    readonly property Component textEdit: ScrollView {
        width: 405
        height: 104

        TextArea {
            text: longText
            wrapMode: TextEdit.WrapAnywhere
        }
    }
    readonly property Component comboBox: ComboBox {
        width: 405
        height: 52
        model: ["Ethernet", "Wireless", "Modem"]
    }
    readonly property Component datePicker: Item {
        Popup {
            visible: true

            ColumnLayout {
                RowLayout {
                    Button {
                        flat: true
                        icon.source: "qrc:/ui_kit/images/left"
                    }

                    Label {
                        text: grid.title
                    }

                    Button {
                        flat: true
                        icon.source: "qrc:/ui_kit/images/right"
                    }
                }

                DayOfWeekRow {
                    Layout.fillWidth: true
                }

                MonthGrid {
                    id: grid
                }
            }
        }
    }
    readonly property Component scrollingText: ScrollView {
        width: 405
        height: 200

        TextArea {
            readOnly: true
            text: longText
            wrapMode: TextEdit.Wrap
        }
    }
    readonly property Component manualScrollingText: ScrollView {
        width: 405
        height: 200

        TextArea {
            readOnly: true
            text: longText
            wrapMode: TextEdit.Wrap
        }
    }
    readonly property Component controlsTooltip: Item {
        ToolTip {
            text: "What the control is for"
            visible: true
        }
    }
    readonly property Component kitScrollBar: ScrollBar {
        height: 200
        size: 0.5
        policy: ScrollBar.AlwaysOn
    }
    readonly property Component textLabel: Label {
        text: "The certificate is not trusted"
    }
    readonly property Component textPromt: Label {
        text: "The certificate is not trusted"
    }
    readonly property Component commonMenu: ColumnLayout {
        width: 318
        height: 400

        Label {
            text: "Settings"
        }

        ListView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            model: fewRows
            spacing: 4
            delegate: ItemDelegate {
                required property int index
                required property string name

                width: ListView.view.width
                height: 52
                text: name
                highlighted: ListView.isCurrentItem
            }
        }
    }
    readonly property Component appMenu: ColumnLayout {
        width: 318

        Image {
            Layout.preferredWidth: 88
            Layout.preferredHeight: 88
            source: "qrc:/ui_kit/images/logo_big"
            sourceSize.width: 88
        }

        Label {
            text: "Terminal"
        }

        Button {
            Layout.fillWidth: true
            Layout.preferredHeight: 50
            checkable: true
            icon.source: "qrc:/ui_kit/images/settings_gear"
            icon.width: 20
            icon.height: 20
            text: "Settings"
        }
    }
    readonly property Component appWindows: ListView {
        width: 300
        height: 684
        model: fewRows
        highlight: Rectangle {
            color: "gray"
        }
        delegate: ItemDelegate {
            required property int index
            required property string windowTitle

            width: ListView.view.width
            height: 52
            text: windowTitle
        }
        ScrollBar.vertical: ScrollBar {
            policy: ScrollBar.AlwaysOn
        }
    }
    readonly property Component altTab: Rectangle {
        width: 800
        height: 245
        radius: 16
        color: "#CC292521"

        ListView {
            anchors.fill: parent
            anchors.margins: 15
            orientation: ListView.Horizontal
            model: fewRows
            spacing: 15
            clip: true
            delegate: ItemDelegate {
                required property int index
                required property string windowTitle

                width: 340
                height: 213
                text: windowTitle
            }
        }
    }
}
