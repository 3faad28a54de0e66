import QtQuick

// What the text inputs have in common: the box around the input, the error or the hint under it, and
// the tooltip. Children stand in the box. The line is 20 pixels that the owner adds to the height.
FocusScope {
    id: root

    property var pal: paletteProvider.palette
    property string defaultText: "default"
    property string defaultIcon: "qrc:/ui_kit/images/lineedit/reset_text"
    property bool isEditable: true
    property bool isEnabled: true
    property bool resetButtonIsVisible: true
    property bool showFocusBorder: false
    property alias errorMessage: errorLine.text
    property alias errorVisible: errorLine.visible
    property alias hintMessage: hintLine.text
    property alias hintVisible: hintLine.visible
    property alias hintColor: hintLine.color
    property string tooltipText
    property bool containsMouse: false
    property bool shouldAcceptClickEvents: false
    readonly property int tooltipMargin: 4
    readonly property bool tooltipEnabled: tooltipText !== ""
    readonly property bool usable: enabled && isEnabled

    // What a screen reader calls the input where it has no placeholder.
    property string accessibleName
    readonly property string accessibleDescription: errorVisible ? errorMessage : hintMessage
    property bool hasFocus: false
    property real boxHeight: height
    default property alias content: box.data

    signal textUpdated(string newText)
    signal clicked

    function clickByKey(event: var) {
        event.accepted = !isEditable && usable;
        if (event.accepted) {
            clicked();
        }
    }

    onTooltipEnabledChanged: containsMouse = false

    Keys.onEnterPressed: event => clickByKey(event)
    Keys.onReturnPressed: event => clickByKey(event)

    Rectangle {
        id: box

        width: root.width
        height: root.boxHeight
        radius: 12
        border.width: 2
        border.color: {
            if (!root.usable) {
                return root.pal ? root.pal.contentDisabled : "#14ffffff";
            }
            if (root.errorVisible) {
                return root.pal ? root.pal.systemErrorPrimary : "#F34257";
            }
            if (root.hasFocus || root.showFocusBorder) {
                return root.pal ? root.pal.purplePrimary : "#8C8CFF";
            }
            return root.pal ? root.pal.contentBorder : "#28FFFFFF";
        }
        color: {
            if (root.usable) {
                return root.pal ? root.pal.backgroundPrimary : "#050505";
            }
            return root.pal ? root.pal.contentBackground : "#171F1D";
        }

        // An input that cannot be edited is a button for its owner.
        MouseArea {
            anchors.fill: parent
            z: 1
            enabled: !root.isEditable && root.usable
            propagateComposedEvents: true

            onClicked: mouse => {
                mouse.accepted = root.shouldAcceptClickEvents;
                root.clicked();
            }
        }
    }

    InputLine {
        id: errorLine

        anchors.top: box.bottom
        anchors.topMargin: 4
        width: root.width
        visible: false
        color: root.pal ? root.pal.systemErrorPrimary : "#F34257"
        Accessible.role: Accessible.AlertMessage
    }

    InputLine {
        id: hintLine

        anchors.top: box.bottom
        anchors.topMargin: 4
        width: root.width
        visible: !errorLine.visible && text !== ""
    }

    Loader {
        anchors.fill: box
        active: root.tooltipEnabled
        asynchronous: true
        sourceComponent: tooltip
    }

    Component {
        id: tooltip

        MouseArea {
            acceptedButtons: Qt.NoButton
            hoverEnabled: true

            onContainsMouseChanged: root.containsMouse = containsMouse

            ControlsTooltip {
                x: (box.width - width) / 2
                y: box.height + root.tooltipMargin
                text: root.tooltipText
                state: root.containsMouse ? "Visible" : "Invisible"
            }
        }
    }
}
