import QtQuick
import QtQuick.Controls.Basic

// A long text to read, with a scroll bar.
Item {
    id: root

    property var pal: paletteProvider.palette
    property alias text: label.text
    property alias verticalScrollBar: verticalBar
    readonly property int textMargin: 24

    // Moves by a part of the text's height and stops at its ends.
    function scroll(part: real) {
        verticalBar.position = Math.max(0, Math.min(1 - verticalBar.size,
                                                    verticalBar.position + part));
    }

    implicitWidth: 405
    implicitHeight: 200

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: root.pal ? root.pal.backgroundPrimary : "#050505"
    }

    ScrollView {
        id: view

        anchors.fill: parent
        anchors.margins: root.textMargin
        contentWidth: availableWidth
        clip: true
        contentHeight: label.height
        focusPolicy: Qt.StrongFocus
        ScrollBar.horizontal.policy: ScrollBar.AlwaysOff
        ScrollBar.vertical: KitScrollBar {
            id: verticalBar

            parent: root
            x: view.mirrored ? (root.textMargin - width) / 2
                             : root.width - (root.textMargin + width) / 2
            y: root.textMargin
            height: view.height
            focusTrigger: view.activeFocus
        }

        Accessible.role: Accessible.StaticText
        Accessible.name: root.text

        Keys.onPressed: event => {
            const line = metrics.lineSpacing / view.contentHeight;
            const moves = new Map([
                [Qt.Key_Down, () => root.scroll(line)],
                [Qt.Key_Up, () => root.scroll(-line)],
                [Qt.Key_PageUp, () => verticalBar.decrease()],
                [Qt.Key_PageDown, () => verticalBar.increase()],
                [Qt.Key_Home, () => root.scroll(-1)],
                [Qt.Key_End, () => root.scroll(1)]
            ]);
            event.accepted = moves.has(event.key);
            if (event.accepted) {
                moves.get(event.key)();
            }
        }

        TextLabel {
            id: label

            width: view.availableWidth
            font.pixelSize: 14
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }

    RightClickedMouseArea {
        anchors.fill: parent

        onClicked: view.forceActiveFocus(Qt.MouseFocusReason)
    }

    FocusFrame {
        frameRadius: 12
        active: view.visualFocus
    }

    FontMetrics {
        id: metrics

        font: label.font
    }
}
