import QtQuick

// The blinking cursor of the input that is its parent.
Rectangle {
    id: root

    readonly property var input: parent
    readonly property var hints: Qt.styleHints
    readonly property bool shown: input.activeFocus && !input.readOnly
                                  && input.selectionStart === input.selectionEnd

    width: 1
    visible: shown

    Connections {
        target: root.input

        // Stays on while it moves, so that the eye can follow.
        function onCursorPositionChanged() {
            root.opacity = 1;
            blinking.restart();
        }
    }

    Timer {
        id: blinking

        running: root.shown && root.hints.cursorFlashTime > 0
        repeat: true
        interval: root.hints.cursorFlashTime / 2

        onTriggered: root.opacity = root.opacity === 0 ? 1 : 0
    }
}
