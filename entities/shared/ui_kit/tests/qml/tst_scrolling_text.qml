import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property string tale: "A line of text\n".repeat(99) + "<b>END</b>"

    width: 500
    height: 500

    UiKitBase.ScrollingText {
        id: scrolling

        text: root.tale
    }

    UiKitBase.ManualScrollingText {
        id: manual

        readonly property var view: children[1]
        readonly property var content: view.contentItem.children[0]
        readonly property var bar: children[3]

        y: 250
    }

    KitTestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            manual.clear();
            manual.insertTextToBack(root.tale);
            manual.setScrollPosition(0);
            spy.clear();
        }

        function test_manualTextHasTheFocusFromTheStart() {
            verify(manual.activeFocus);
        }

        function test_keysScroll() {
            const bar = scrolling.verticalScrollBar;
            keyClick(Qt.Key_Backtab);
            verify(!manual.activeFocus);
            const at = key => {
                keyClick(key);
                return bar.position;
            };
            const line = at(Qt.Key_Down);
            fuzzyCompare(line, 0.01, 0.001);
            compare(at(Qt.Key_Up), 0);
            compare(at(Qt.Key_Up), 0);
            const page = at(Qt.Key_PageDown);
            fuzzyCompare(page, 0.1, 0.01);
            fuzzyCompare(at(Qt.Key_End), 1 - bar.size, 0.001);
            fuzzyCompare(at(Qt.Key_Down), 1 - bar.size, 0.001);
            verify(at(Qt.Key_PageUp) < 1 - bar.size);
            compare(at(Qt.Key_Home), 0);
            mouseClick(manual, 50, 50, Qt.RightButton);
            verify(manual.activeFocus);
        }

        function test_manualKeysAndWheelTellThePosition_data() {
            return [
                { tag: "PageDown", key: Qt.Key_PageDown, step: 0.5 },
                { tag: "End", key: Qt.Key_End, position: 1 },
                { tag: "PageUp", from: 0.5, key: Qt.Key_PageUp, step: -0.5 },
                { tag: "Home", from: 0.5, key: Qt.Key_Home, position: 0 },
                { tag: "wheel down", wheel: -120, step: 0.5 },
                { tag: "wheel up", from: 0.5, wheel: 120, step: -0.5 }
            ];
        }

        function test_manualKeysAndWheelTellThePosition(row) {
            const from = row.from ?? 0;
            const size = manual.bar.size;
            manual.setScrollPosition(from);
            compare(spy.count, 0);
            manual.forceActiveFocus();
            if (row.key) {
                keyClick(row.key);
            } else {
                mouseWheel(manual, 50, 50, 0, row.wheel);
            }
            compare(spy.count, 1);
            fuzzyCompare(spy.signalArguments[0][0],
                         row.position ?? from + row.step * size / (1 - size), 0.0001);
        }

        function test_manualScrollingByItsOwnerTellsNothing() {
            manual.setScrollPosition(0.5);
            manual.setViewScrollPosition(0.5);
            fuzzyCompare(manual.bar.position, 0.5 * (1 - manual.bar.size), 0.0001);
            fuzzyCompare(manual.view.contentY,
                         (manual.content.height - manual.view.height) / 2, 1);
            manual.scrollToEnd();
            fuzzyCompare(manual.bar.position, 1 - manual.bar.size, 0.0001);
            compare([spy.count, manual.blockSignals], [0, false]);
            mousePress(manual.bar, 6, 5);
            const held = manual.bar.position;
            manual.scrollToEnd();
            compare(manual.bar.position, held);
            mouseRelease(manual.bar, 6, 5);
        }

        function test_manualTextIsFed() {
            manual.clear();
            manual.insertTextToBack("345");
            manual.insertTextToFront("<i>");
            manual.insertTextToBack("67");
            compare(manual.content.text, "<i>34567");
            manual.removeTextFromFront(4);
            manual.removeTextFromBack(2);
            compare(manual.content.text, "345");
        }

        function test_looks() {
            fuzzyCompare(manual.bar.size, 0.1 * manual.view.visibleArea.heightRatio, 0.0001);
            compare([manual.bar.width, manual.content.font.pixelSize, manual.radius,
                     manual.textMargin],
                    [13, 14, 8, 16]);
            compareLooks(() => [scrolling, manual].map(item => item.children[0].color),
                         [["backgroundPrimary", "#050505"], ["backgroundPrimary", "#bf000000"]]);
        }

        name: "ScrollingText"
        subject: manual
        signalName: "scrollChanged"
    }
}
