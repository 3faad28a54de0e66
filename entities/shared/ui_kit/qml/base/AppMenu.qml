import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// The head of a side menu: the logo of the program, its name and one button that stays pressed.
Item {
    id: root

    property var pal: paletteProvider.palette
    property alias logo: image.source
    property alias caption: label.text
    property alias buttonEnabled: button.enabled
    property alias buttonVisible: button.visible
    property alias buttonChecked: button.checked
    property alias buttonText: button.text

    signal buttonActivated

    implicitWidth: column.implicitWidth
    implicitHeight: column.implicitHeight + column.anchors.topMargin

    ColumnLayout {
        id: column

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.topMargin: 40
        spacing: 16

        SharpImage {
            id: image

            shownWidth: 88
            Layout.preferredWidth: shownWidth
            Layout.preferredHeight: 88
            Layout.topMargin: 16
            Layout.alignment: Qt.AlignHCenter
            source: "qrc:/rdp_client/images/icon-avatar"
            Accessible.ignored: true
        }

        TextLabel {
            id: label

            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 24
        }

        Button {
            id: button

            // What a click does, which the button has no function for.
            function press() {
                toggle();
                clicked();
            }

            Layout.fillWidth: true
            Layout.preferredHeight: 50
            Layout.topMargin: 20
            Layout.leftMargin: 12
            Layout.rightMargin: 12
            horizontalPadding: 14
            verticalPadding: 8
            checkable: true
            hoverEnabled: true

            Accessible.role: Accessible.Button
            Accessible.name: text
            Accessible.onPressAction: if (enabled) press()

            background: Rectangle {
                radius: 12
                color: {
                    if (button.checked) {
                        return root.pal ? root.pal.contentBackground : "#171F1D";
                    }
                    return "transparent";
                }
            }

            contentItem: RowLayout {
                spacing: 16

                SharpImage {
                    shownWidth: 20
                    Layout.preferredWidth: shownWidth
                    Layout.preferredHeight: 20
                    source: "qrc:/ui_kit/images/"
                            + (button.enabled ? "settings_gear" : "settings_gear_disabled")
                }

                TextLabel {
                    Layout.fillWidth: true
                    text: button.text
                    elide: Text.ElideRight
                    wrapMode: Text.NoWrap
                    color: {
                        if (!button.enabled) {
                            return root.pal ? root.pal.contentDisabled : "gray";
                        }
                        return root.pal ? root.pal.contentPrimary : "white";
                    }
                    Accessible.ignored: true
                }
            }

            onClicked: root.buttonActivated()

            Keys.onEnterPressed: press()
            Keys.onReturnPressed: press()

            FocusFrame {
                frameRadius: 16
                active: button.visualFocus
            }

            RightClickedMouseArea {
                anchors.fill: parent
            }
        }
    }
}
