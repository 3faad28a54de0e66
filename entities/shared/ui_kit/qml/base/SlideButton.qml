import QtQuick
import QtQuick.Controls.Basic

// A card with a title, a description and a switch. The switch tells of a click and does not move by
// itself: the owner sets `checked` once what it asks for has happened.
Item {
    id: root

    property var pal: paletteProvider.palette
    property alias enable: switchButton.enabled
    property bool checked: false
    property bool progress: false
    property bool hasStateIcon: false
    property alias text: title.text
    property alias description: details.text
    property string checkedImageSource
    property string uncheckedImageSource
    property color textCheckedColor: "#FAFFFFFF"
    property color textUncheckedColor: "#FAFFFFFF"
    property color descriptionCheckedColor: "#28E075"
    property color descriptionUncheckedColor: "gray"
    property alias statusImage: icon
    property color activeColor: pal ? pal.purplePrimary : "#8C8CFF"
    property color progressColor: pal ? pal.purpleSubPrimary : "#9941B79D"
    // No binding shows it: a press does not change the switch.
    property color pressedColor: pal ? pal.purpleSecondary : "#9941B79D"
    property color baseColor: pal ? pal.contentDisabled : "gray"
    property int horizontalMargin: 16
    property int iconSpacing: 16
    readonly property int topMargin: 16
    readonly property real textWidth: width - switchButton.width - iconSpacing
                                      - (hasStateIcon ? icon.width : 0) - 2 * horizontalMargin

    signal clicked

    implicitWidth: 405
    implicitHeight: texts.height + 2 * topMargin

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: "#050505"
    }

    SharpImage {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: root.horizontalMargin
        anchors.top: parent.top
        anchors.topMargin: root.topMargin
        width: 24
        height: 24
        visible: root.hasStateIcon
        source: root.checked ? root.checkedImageSource : root.uncheckedImageSource
    }

    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: root.horizontalMargin
                            + (root.hasStateIcon ? icon.width + root.iconSpacing : 0)
        anchors.top: parent.top
        anchors.topMargin: root.topMargin

        TextLabel {
            id: title

            width: root.textWidth
            color: root.checked ? root.textCheckedColor : root.textUncheckedColor
            horizontalAlignment: Text.AlignLeft
            lineHeight: 26
            lineHeightMode: Text.FixedHeight
            Accessible.ignored: true
        }

        TextLabel {
            id: details

            anchors.left: parent.left
            width: Math.min(implicitWidth, root.textWidth)
            visible: text !== ""
            color: {
                if (!root.checked) {
                    return root.descriptionUncheckedColor;
                }
                return root.progress ? "gray" : root.descriptionCheckedColor;
            }
            font.pixelSize: 14
            horizontalAlignment: Text.AlignLeft
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
            Accessible.ignored: true
        }
    }

    // Holds the switch in its place, whose own anchors would be mirrored.
    Item {
        anchors.right: parent.right
        anchors.rightMargin: root.horizontalMargin
        anchors.top: parent.top
        anchors.topMargin: root.topMargin
        width: switchButton.width
        height: switchButton.height

        Switch {
            id: switchButton

            width: 40
            height: 24
            padding: 0
            checkable: false
            contentItem: null
            LayoutMirroring.enabled: root.checked

            Accessible.role: Accessible.CheckBox
            Accessible.name: root.text
            Accessible.description: root.description
            Accessible.checkable: true
            Accessible.checked: root.checked
            Accessible.onPressAction: if (enabled) root.clicked()
            Accessible.onToggleAction: if (enabled) root.clicked()

            indicator: Rectangle {
                implicitWidth: 40
                implicitHeight: 24
                radius: 28
                color: {
                    if (!root.checked) {
                        return root.baseColor;
                    }
                    return root.progress ? root.progressColor : root.activeColor;
                }

                Rectangle {
                    x: root.checked ? parent.width - width - 4 : 4
                    y: 4
                    width: 16
                    height: 16
                    radius: 16
                }
            }

            onClicked: root.clicked()

            Keys.onEnterPressed: root.clicked()
            Keys.onReturnPressed: root.clicked()

            FocusFrame {
                target: switchButton.indicator
                active: switchButton.visualFocus
            }
        }
    }

    // Over the switch as well, which would follow a drag.
    MouseArea {
        anchors.fill: parent
        enabled: root.enable

        onClicked: root.clicked()
    }

    RightClickedMouseArea {
        anchors.fill: parent
        enabled: root.enable

        onClicked: switchButton.forceActiveFocus(Qt.MouseFocusReason)
    }
}
