import QtQuick
import QtQuick.Controls.Basic

// The main action button, in one of three states of emphasis.
Button {
    id: root

    property var pal: paletteProvider.palette
    property int fontPixelSize: 16
    property real radius: 16
    property string hintText
    property color normalColor: {
        if (state === "Light") {
            return pal ? pal.purpleBackground : "#9C9CFF";
        }
        if (state === "Alternative") {
            return pal ? pal.contentBackground : "#9C9CFF";
        }
        return pal ? pal.purplePrimary : "#9C9CFF";
    }
    property color hoverColor: {
        if (state === "Light") {
            return pal ? pal.purpleBorder : "#8C8CFF";
        }
        if (state === "Alternative") {
            return pal ? pal.contentBorder : "#8C8CFF";
        }
        return pal ? pal.purpleSubPrimary : "#8C8CFF";
    }
    property color pressedColor: {
        if (state === "Light") {
            return pal ? pal.purpleDisabled : "#9C9CFF";
        }
        if (state === "Alternative") {
            return pal ? pal.contentDisabled : "#9C9CFF";
        }
        return pal ? pal.purpleSecondary : "#9C9CFF";
    }
    property color contentColor: {
        if (state === "Light") {
            return pal ? pal.purplePrimary : "#9C9CFF";
        }
        return pal ? pal.contentPrimary : "white";
    }
    property color disabledColor: root.pal ? root.pal.contentBackground : "black"

    implicitWidth: 190
    implicitHeight: 52
    hoverEnabled: true
    state: "Normal"

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()

    background: Rectangle {
        radius: root.radius
        color: {
            if (!root.enabled) {
                return root.disabledColor;
            }
            if (root.pressed) {
                return root.pressedColor;
            }
            return root.hovered ? root.hoverColor : root.normalColor;
        }
    }

    // Half of what its content leaves, so that it stands in the middle.
    verticalPadding: (height - implicitContentHeight) / 2
    contentItem: Column {
        spacing: 0

        TextLabel {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.text
            color: root.enabled ? root.contentColor
                                : root.pal ? root.pal.contentDisabled : "gray"
            font.pixelSize: root.fontPixelSize
            font.weight: Font.DemiBold
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }

        Loader {
            anchors.horizontalCenter: parent.horizontalCenter
            active: root.hintText !== ""
            visible: active
            asynchronous: true
            sourceComponent: hint
        }
    }

    Keys.onEnterPressed: clicked()
    Keys.onReturnPressed: clicked()

    FocusFrame {
        active: root.visualFocus
    }

    RightClickedMouseArea {
        anchors.fill: parent
    }

    Component {
        id: hint

        TextLabel {
            text: root.hintText
            color: root.pal ? root.pal.contentSecondary : "#AFB5BC"
            font.pixelSize: 12
        }
    }
}
