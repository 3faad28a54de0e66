import QtQuick
import QtQuick.Layouts

import AppStyle 1.0
import "qrc:/ui_kit/qml/base/" as UiKitBase

// The dialog on its veil. What the caller says about the certificate is shown as plain text only.
Item {
    id: root

    readonly property int dialogMargin: 40
    readonly property int rowSpacing: 18
    readonly property int titleFontSize: 24
    readonly property int buttonRowHeight: 52
    readonly property int buttonSpacing: 20
    readonly property int cancelWidth: 100
    readonly property int approveWidth: 250

    width: winWidth
    height: winHeight

    Accessible.role: Accessible.Dialog
    Accessible.name: title.text

    Keys.onEscapePressed: certApproverContext.Close()

    Rectangle {
        anchors.fill: parent
        color: Style.mainWindowBgColor
    }

    Item {
        anchors.centerIn: parent
        width: Style.dialogWinWidth
        height: Style.dialogWinHeight

        Rectangle {
            anchors.fill: parent
            color: Style.dialogColor
            radius: Style.dialogRadius
            border.color: Style.mainWindowBorderColor
            border.width: Style.mainWindowBorderWidth
        }

        ColumnLayout {
            anchors.fill: parent
            anchors.margins: root.dialogMargin
            spacing: root.rowSpacing

            UiKitBase.TextLabel {
                id: title

                Layout.fillWidth: true
                text: qsTranslate("CertApproverWindowView", "$Add certificate$")
                font.pixelSize: root.titleFontSize
            }

            UiKitBase.TextLabel {
                Layout.fillWidth: true
                text: qsTranslate("CertApproverWindowView", "$Description$")
            }

            InformationPanel {
                Layout.fillWidth: true
            }

            UiKitBase.TextPromt {
                Layout.fillWidth: true
                text: qsTranslate("CertApproverWindowView", "$Warning$")
            }

            Item {
                Layout.fillHeight: true
            }

            RowLayout {
                Layout.alignment: Qt.AlignBottom
                Layout.preferredHeight: root.buttonRowHeight
                spacing: root.buttonSpacing

                Item {
                    Layout.fillWidth: true
                }

                UiKitBase.PushButton {
                    Layout.alignment: Qt.AlignBottom | Qt.AlignRight
                    Layout.preferredWidth: root.cancelWidth
                    Layout.preferredHeight: root.buttonRowHeight
                    state: "Alternative"
                    text: qsTranslate("CertApproverWindowView", "$Cancel$")

                    onClicked: certApproverContext.Close()
                }

                UiKitBase.PushButton {
                    Layout.alignment: Qt.AlignBottom | Qt.AlignRight
                    Layout.preferredWidth: root.approveWidth
                    Layout.preferredHeight: root.buttonRowHeight
                    focus: true
                    text: qsTranslate("CertApproverWindowView", "$Approve$")

                    onClicked: certApproverContext.Approve()
                    Component.onCompleted: forceActiveFocus()
                }
            }
        }
    }
}
