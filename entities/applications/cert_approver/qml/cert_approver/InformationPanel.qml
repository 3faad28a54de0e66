import QtQuick
import QtQuick.Layouts

import AppStyle 1.0
import "qrc:/ui_kit/qml/base/" as UiKitBase

// What is known about the certificate. The height is fixed: where the texts are too long for it, the
// address and the names give way, so that validity and fingerprint are always there to be read.
Rectangle {
    id: root

    readonly property int gridMargin: 17
    readonly property int separatorHeight: 3
    readonly property int separatorMargin: 2
    readonly property int namesBottomMargin: 10
    readonly property int valueFontSize: 14

    // The same preferred width everywhere makes two columns of equal width, whatever they show.
    component Caption: UiKitBase.TextPromt {
        Layout.fillWidth: true
        Layout.preferredWidth: 1
    }

    // Shows the caller's text as it is, markup included.
    component Value: UiKitBase.TextLabel {
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        font.pixelSize: root.valueFontSize
        textFormat: Text.PlainText
        // A name without blanks, or a fingerprint, is one long word.
        wrapMode: Text.Wrap
    }

    component YieldingValue: Value {
        Layout.fillHeight: true
        Layout.maximumHeight: implicitHeight
        elide: Text.ElideRight
    }

    implicitHeight: 250
    radius: Style.greyRectangleRadius
    color: "#191B1E"
    clip: true

    GridLayout {
        anchors.fill: parent
        anchors.margins: root.gridMargin
        columns: 2

        Caption {
            text: qsTranslate("CertApproverWindowView", "$AddressLabel$")
        }

        YieldingValue {
            text: addressData
            horizontalAlignment: Text.AlignRight
        }

        Rectangle {
            Layout.columnSpan: 2
            Layout.fillWidth: true
            Layout.preferredHeight: root.separatorHeight
            Layout.alignment: Qt.AlignVCenter
            Layout.margins: root.separatorMargin
            color: "#ff808080"
        }

        Caption {
            text: qsTranslate("CertApproverWindowView", "$Issuer$")
        }

        Caption {
            text: qsTranslate("CertApproverWindowView", "$Subject$")
        }

        YieldingValue {
            Layout.bottomMargin: root.namesBottomMargin
            text: issuer
        }

        YieldingValue {
            text: subject
        }

        Caption {
            text: qsTranslate("CertApproverWindowView", "$Valid$")
        }

        Caption {
            text: qsTranslate("CertApproverWindowView", "$Fingerprint$")
        }

        Value {
            text: validData
        }

        Value {
            text: fingerprintData
        }
    }
}
