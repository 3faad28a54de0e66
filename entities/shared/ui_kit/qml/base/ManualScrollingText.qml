import QtQuick
import QtQuick.Controls.Basic

// A window on a text too long to hold. Its owner follows the scroll position, feeds the part of the
// text around it, and says where in that part the view stands.
Item {
    id: root

    property var pal: paletteProvider ? paletteProvider.palette : null
    property bool blockSignals: false
    property int radius: 8
    property real viewScrollPart: 0.1
    property int textMargin: 16

    signal scrollChanged(real position)

    function doScrollChanged(position: real) {
        if (!blockSignals) {
            const range = 1 - scrollBar.size;
            scrollChanged(range > 0 ? Math.max(0, Math.min(1, position / range)) : 0);
        }
    }

    function insertTextToFront(text: string) {
        content.insert(0, text);
    }

    function insertTextToBack(text: string) {
        content.insert(content.length, text);
    }

    // Removes up to the index count - 1, which stays.
    function removeTextFromFront(count: int) {
        content.remove(0, count - 1);
    }

    function removeTextFromBack(count: int) {
        content.remove(content.length - count, content.length);
    }

    function setViewScrollPosition(position: real) {
        viewBar.position = position * (1 - viewBar.size);
    }

    function setScrollPosition(position: real) {
        blockSignals = true;
        scrollBar.position = position * (1 - scrollBar.size);
        blockSignals = false;
    }

    function scrollToEnd() {
        if (!scrollBar.pressed) {
            setScrollPosition(1);
            setViewScrollPosition(1);
        }
    }

    function clear() {
        content.clear();
    }

    implicitWidth: 405
    implicitHeight: 200
    activeFocusOnTab: true

    Accessible.role: Accessible.StaticText
    Accessible.name: content.text

    Keys.onPressed: event => {
        const moves = new Map([
            [Qt.Key_PageUp, () => scrollBar.decrease()],
            [Qt.Key_PageDown, () => scrollBar.increase()],
            [Qt.Key_Home, () => scrollBar.position = 0],
            [Qt.Key_End, () => scrollBar.position = 1 - scrollBar.size]
        ]);
        event.accepted = moves.has(event.key);
        if (event.accepted) {
            moves.get(event.key)();
        }
    }

    Component.onCompleted: forceActiveFocus()

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: root.pal ? root.pal.backgroundPrimary : "#BF000000"
    }

    Flickable {
        id: view

        anchors.fill: parent
        anchors.margins: root.textMargin
        clip: true
        interactive: false
        contentWidth: width
        contentHeight: content.height
        ScrollBar.vertical: ScrollBar {
            id: viewBar

            policy: ScrollBar.AlwaysOff
        }

        TextEdit {
            id: content

            width: view.width
            enabled: false
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: root.pal ? root.pal.contentPrimary : "white"
            font.family: "Vantelore Sans Mono"
            font.pixelSize: 14
            Accessible.ignored: true
        }
    }

    RightClickedMouseArea {
        anchors.fill: parent

        onWheel: wheel => {
            if (wheel.angleDelta.y > 0) {
                scrollBar.decrease();
            } else if (wheel.angleDelta.y < 0) {
                scrollBar.increase();
            }
        }
    }

    KitScrollBar {
        id: scrollBar

        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: 13
        policy: ScrollBar.AlwaysOn
        orientation: Qt.Vertical
        size: root.viewScrollPart * viewBar.size
        stepSize: size / 2
        focusTrigger: root.activeFocus

        onPositionChanged: root.doScrollChanged(position)
    }
}
