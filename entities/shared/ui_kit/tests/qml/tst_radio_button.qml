import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var dot: button.indicator.children[0]

    width: 500
    height: 300

    UiKitBase.RadioButton {
        id: button

        text: "One of them"
        autoExclusive: false
    }

    KitTestCase {
        function init() {
            button.enabled = true;
            button.checked = false;
            root.forceActiveFocus();
            spy.clear();
        }

        function test_aScreenReaderChoosesAndDoesNotTakeBack() {
            for (const enabled of [false, true, true]) {
                button.enabled = enabled;
                button.Accessible.pressAction();
                compare([spy.count, button.checked], [enabled ? 1 : 0, enabled]);
            }
        }

        function test_keys() {
            keyClick(Qt.Key_Tab);
            verify(button.visualFocus);
            press(Qt.Key_Enter, Qt.Key_Return);
            compare([spy.count, button.checked], [2, false]);
            keyClick(Qt.Key_Space);
            compare([spy.count, button.checked], [3, true]);
        }

        function test_textIsClickedToo() {
            mouseClick(button, 60, 12);
            verify(button.checked);
        }

        function test_looks_data() {
            const dot = (role, literal) => [[role, "#8c8cff"], [role, literal], "#00000000"];
            return [
                { tag: "plain", look: dot("purplePrimary", "#8c8cff") },
                { tag: "focus", look: dot("purpleSubPrimary", "#9c9cff") },
                { tag: "pressed", look: dot("purpleSecondary", "#9c9cff") },
                { tag: "disabled", look: [["contentDisabled", "#57ffffff"],
                                          ["contentDisabled", "#57ffffff"],
                                          ["contentBackground", "#1fffffff"]] }
            ];
        }

        function test_looks(row) {
            button.checked = true;
            button.enabled = row.tag !== "disabled";
            button.focusPolicy = row.tag === "pressed" ? Qt.NoFocus : Qt.StrongFocus;
            if (row.tag === "focus") {
                button.forceActiveFocus();
            } else if (row.tag === "pressed") {
                mousePress(button, 12, 12);
            }
            compareLooks(() => [button.indicator.border.color, root.dot.color,
                                button.indicator.color], row.look);
            if (row.tag === "pressed") {
                mouseRelease(button, 12, 12);
            }
        }

        name: "RadioButton"
        subject: button
        signalName: "toggled"
    }
}
