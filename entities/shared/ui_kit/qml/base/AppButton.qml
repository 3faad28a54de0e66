import QtQuick

// The button of a program in the taskbar: its icon, and under it how many windows it has.
Item {
    id: root

    property alias imageSource: image.source
    // Off where an image may change under its name: a window's icon comes later than the window.
    property alias imageCache: image.cache
    property alias windowsCount: indicator.windowsCount
    property alias containsMouse: mouseArea.containsMouse
    readonly property int uxIconSize: 40
    readonly property int uxIndicatorDashWidth: 8
    readonly property int uxIndicatorWidth: 40
    readonly property int uxIndicatorHeight: 2
    readonly property int uxIconToIndicatorGapSize: 2
    readonly property int uxAboveGapSize: 4
    readonly property int uxAppButtonWidth: 40
    readonly property int uxAppButtonHeight: 48
    readonly property color uxIndicatorColor: "#80FFFFFF"

    signal entered
    signal exited
    signal clicked(var mouse)

    // Gives up the focus, or takes it, before the key goes on to move it.
    function flipFocus(event: var) {
        focus = !focus;
        event.accepted = false;
    }

    implicitWidth: uxAppButtonWidth
    implicitHeight: uxAppButtonHeight
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Application")
    Accessible.onPressAction: if (enabled) clicked(Qt.LeftButton)

    onVisibleChanged: {
        if (!visible) {
            focus = false;
        }
    }

    Keys.onReturnPressed: clicked(Qt.LeftButton)
    Keys.onEnterPressed: clicked(Qt.LeftButton)
    Keys.onSpacePressed: clicked(Qt.LeftButton)
    Keys.onTabPressed: event => flipFocus(event)
    Keys.onBacktabPressed: event => flipFocus(event)

    Rectangle {
        id: frame

        anchors.horizontalCenter: parent.horizontalCenter
        y: root.uxAboveGapSize
        width: root.uxIconSize
        height: root.uxIconSize
        radius: 12
        color: "transparent"
        border.width: 2
        border.color: root.activeFocus ? "#FFFFFF" : "transparent"

        Image {
            id: image

            anchors.fill: parent
            asynchronous: true
            fillMode: Image.Pad
            clip: true
        }
    }

    Item {
        id: indicator

        property int windowsCount: 0

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: frame.bottom
        anchors.topMargin: root.uxIconToIndicatorGapSize
        width: root.uxIndicatorWidth
        height: root.uxIndicatorHeight
        visible: windowsCount > 0

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 2

            Repeater {
                // More than one is all that it tells.
                model: Math.max(0, Math.min(indicator.windowsCount, 2))

                Rectangle {
                    width: root.uxIndicatorDashWidth
                    height: root.uxIndicatorHeight
                    color: root.uxIndicatorColor
                }
            }
        }
    }

    MouseArea {
        id: mouseArea

        anchors.fill: parent
        hoverEnabled: true

        onEntered: root.entered()
        onExited: root.exited()
        onClicked: mouse => root.clicked(mouse)
    }

    RightClickedMouseArea {
        anchors.fill: parent
    }
}
