import QtQuick
import QtQuick.Controls.Basic

// One choice of several. Enter announces it and leaves the choice as it is.
RadioButton {
    id: root

    property var pal: paletteProvider.palette
    property color normalColor: pal ? pal.purplePrimary : "#8C8CFF"
    property color hoverColor: pal ? pal.purpleSubPrimary : "#9C9CFF"
    property color pressedColor: pal ? pal.purpleSecondary : "#9C9CFF"
    readonly property color disabledColor: pal ? pal.contentDisabled : "#57FFFFFF"

    // What a click does, which the button has no function for.
    function choose() {
        if (!enabled) {
            return;
        }
        if (!checked) {
            checked = true;
            toggled();
        }
        clicked();
    }

    implicitWidth: 24
    implicitHeight: 24
    padding: 0
    contentItem: null
    containmentMask: clickable

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.onPressAction: choose()
    Accessible.onToggleAction: choose()

    indicator: Rectangle {
        x: root.mirrored ? root.width - width : 0
        implicitWidth: 24
        implicitHeight: 24
        radius: 13
        border.width: 2
        border.color: {
            if (!root.enabled) {
                return root.disabledColor;
            }
            if (!root.pal) {
                return "#8C8CFF";
            }
            if (root.activeFocus) {
                return root.pal.purpleSubPrimary;
            }
            return root.pressed ? root.pal.purpleSecondary : root.pal.purplePrimary;
        }
        color: {
            if (root.enabled) {
                return "transparent";
            }
            return root.pal ? root.pal.contentBackground : "#1FFFFFFF";
        }

        Rectangle {
            x: 6
            y: 6
            width: 12
            height: 12
            radius: 7
            visible: root.checked
            color: {
                if (!root.enabled) {
                    return root.disabledColor;
                }
                if (root.activeFocus) {
                    return root.hoverColor;
                }
                return root.pressed ? root.pressedColor : root.normalColor;
            }
        }
    }

    Keys.onEnterPressed: toggled()
    Keys.onReturnPressed: toggled()

    IndicatorLabel {
        id: label

        control: root
    }

    // The text belongs to what can be clicked, wherever it ends.
    Item {
        id: clickable

        x: Math.min(0, label.x)
        width: Math.max(root.width, label.width)
        height: Math.max(root.height, label.height)
    }

    RightClickedMouseArea {
        anchors.fill: parent
    }

    FocusFrame {
        target: root.indicator
        frameRadius: 6
        active: root.visualFocus
    }
}
