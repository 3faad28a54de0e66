import QtQuick

// The speech bubble of the taskbar's tooltips. Its user lays into it what it says.
Item {
    id: root

    // To be written as TaskbarTooltip.Left and so on. For Left and Right that names the directions of
    // the same name that every item has; their numbers are what is compared.
    enum ArrowDirection {
        Up,
        Down,
        Left,
        Right
    }

    property int directionArrow: TaskbarTooltip.Down
    property color color: "#050505"
    property int radius: 12
    property int triangleHeight: 6
    property int triangleVertex: width / 2
    property color borderColor: "transparent"
    property int borderWidth: 0
    property bool transposed: false
    property alias state: states.state
    // The triangle lies at the start of its axis.
    readonly property bool newDefault: directionArrow === TaskbarTooltip.Up
                                       || directionArrow === TaskbarTooltip.Left

    Accessible.role: Accessible.ToolTip

    TooltipShape {
        anchors.fill: parent
        color: root.color
        radius: root.radius
        triangleHeight: root.triangleHeight
        triangleVertex: root.triangleVertex
        borderColor: root.borderColor
        borderWidth: root.borderWidth
        side: {
            const sideways = root.transposed || root.directionArrow === TaskbarTooltip.Left
                           || root.directionArrow === TaskbarTooltip.Right;
            if (sideways) {
                return root.newDefault ? Qt.LeftEdge : Qt.RightEdge;
            }
            return root.newDefault ? Qt.TopEdge : Qt.BottomEdge;
        }
    }

    TooltipStates {
        id: states

        tooltip: root
    }
}
