import QtQuick
import QtQuick.Controls.Basic

// A box to be ticked. It acts on clicks on the indicator and on the text, wherever that ends.
CheckBox {
    id: root

    property var pal: paletteProvider.palette
    property string tooltipText
    readonly property color frameColor: {
        if (!enabled) {
            return contentDisabledColor;
        }
        if (checked) {
            return fillColor;
        }
        if (held) {
            return "#CCFFFFFF";
        }
        return mouseArea.containsMouse ? "#ADFFFFFF" : contentSecondaryColor;
    }
    readonly property color fillColor: {
        if (!enabled) {
            return disabledColor;
        }
        if (!checked) {
            return backgroundPrimaryColor;
        }
        if (held) {
            return pressedColor;
        }
        return mouseArea.containsMouse ? hoveredColor : normalColor;
    }
    readonly property color normalColor: pal ? pal.purplePrimary : "#9C9CFF"
    readonly property color hoveredColor: pal ? pal.purpleSubPrimary : "#9C9CFF"
    readonly property color pressedColor: pal ? pal.purpleSecondary : "#8C8CFF"
    readonly property color disabledColor: pal ? pal.contentBackground : "black"
    readonly property color subPrimaryColor: pal ? pal.contentSubPrimary : "white"
    readonly property color contentDisabledColor: pal ? pal.contentDisabled : "#57FFFFFF"
    readonly property color backgroundPrimaryColor: pal ? pal.backgroundPrimary : "#050505"
    readonly property color contentSecondaryColor: pal ? pal.contentSecondary : "#8FFFFFFF"
    readonly property bool held: pressed || mouseArea.pressed

    implicitWidth: 20
    implicitHeight: 20
    padding: 0
    contentItem: null

    Accessible.role: Accessible.CheckBox
    Accessible.name: text

    indicator: Rectangle {
        x: root.mirrored ? root.width - width : 0
        implicitWidth: 20
        implicitHeight: 20
        radius: 4
        border.width: 2
        border.color: root.frameColor
        color: root.fillColor

        SharpImage {
            anchors.centerIn: parent
            width: 24
            height: 24
            visible: root.checked
            source: root.enabled ? "qrc:/ui_kit/images/check_mark_icon_enable"
                                 : "qrc:/ui_kit/images/check_mark_icon_disable"
        }
    }

    Keys.onEnterPressed: toggle()
    Keys.onReturnPressed: toggle()

    IndicatorLabel {
        id: label

        control: root
    }

    RightClickedMouseArea {
        anchors.fill: parent
    }

    // Keeps the box beneath from acting on a click beside its indicator and text.
    MouseArea {
        anchors.fill: parent
    }

    MouseArea {
        id: mouseArea

        x: root.mirrored ? root.width - width : 0
        z: 1
        width: root.indicator.width + (root.text !== "" ? label.contentWidth + 10 : 0)
        height: Math.max(root.indicator.height, root.text !== "" ? label.height : 0)
        hoverEnabled: true

        onClicked: root.toggle()
    }

    FocusFrame {
        target: root.indicator
        active: root.visualFocus
    }

    Loader {
        active: root.tooltipText !== "" && !root.enabled
        asynchronous: true
        sourceComponent: tooltip
    }

    Component {
        id: tooltip

        ControlsTooltip {
            parent: root
            // Its middle is that of the text.
            x: (root.mirrored ? root.indicator.x - label.contentWidth / 2 - 10
                              : root.indicator.x + root.indicator.width + label.contentWidth / 2 + 10)
               - width / 2
            y: root.indicator.y + label.height
            color: "#050505"
            radius: 12
            text: root.tooltipText
            state: mouseArea.containsMouse ? "Visible" : "Invisible"
        }
    }
}
