import QtQuick
import QtQuick.Controls.Basic

// The tooltip of the form's controls. It stands under what it tells of and points up to it.
ToolTip {
    id: root

    property int textWrap: Text.WordWrap
    readonly property int fullWidth: Math.ceil(implicitContentWidth)
    property color color: "#80000000"
    property int radius: height / 3
    property int triangleHeight: 6
    property color borderColor: "transparent"
    property int triangleVertex: width / 2
    property int borderWidth: 0
    property alias state: states.state

    implicitWidth: fullWidth
    visible: false
    horizontalPadding: 0
    verticalPadding: 8

    background: TooltipShape {
        color: root.color
        radius: root.radius
        triangleHeight: root.triangleHeight
        triangleVertex: root.triangleVertex
        oppositeGap: root.triangleHeight
        borderColor: root.borderColor
        borderWidth: root.borderWidth
    }

    contentItem: TextLabel {
        leftPadding: 16
        rightPadding: 16
        topPadding: 8
        bottomPadding: 8
        text: root.text
        font.weight: Font.Medium
        wrapMode: root.textWrap
        Accessible.ignored: true
    }

    TooltipStates {
        id: states

        tooltip: root
    }
}
