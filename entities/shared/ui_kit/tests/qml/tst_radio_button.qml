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
            paletteProvider.palette = darkPalette;
            button.enabled = true;
            button.checked = false;
            root.forceActiveFocus();
            spy.clear();
        }

        function test_keys_data() {
            return [
                { tag: "Enter", key: Qt.Key_Enter, checked: false },
                { tag: "Return", key: Qt.Key_Return, checked: false },
                { tag: "Space", key: Qt.Key_Space, checked: true }
            ];
        }

        function test_aScreenReaderChoosesAndDoesNotTakeBack() {
            for (const enabled of [false, true, true]) {
                button.enabled = enabled;
                button.Accessible.pressAction();
                compare([spy.count, button.checked], [enabled ? 1 : 0, enabled]);
            }
        }

        function test_keys(row) {
            keyClick(Qt.Key_Tab);
            verify(button.visualFocus);
            keyClick(row.key);
            compare([spy.count, button.checked], [1, row.checked]);
        }

        function test_textIsClickedToo() {
            mouseClick(button, 60, 12);
            verify(button.checked);
        }

        function test_looks_data() {
            return [
                { tag: "plain", border: ["purplePrimary", "#8c8cff"],
                  dot: ["purplePrimary", "#8c8cff"], fill: "#00000000" },
                { tag: "focus", border: ["purpleSubPrimary", "#8c8cff"],
                  dot: ["purpleSubPrimary", "#9c9cff"], fill: "#00000000" },
                { tag: "pressed", border: ["purpleSecondary", "#8c8cff"],
                  dot: ["purpleSecondary", "#9c9cff"], fill: "#00000000" },
                { tag: "disabled", border: ["contentDisabled", "#57ffffff"],
                  dot: ["contentDisabled", "#57ffffff"], fill: ["contentBackground", "#1fffffff"] }
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
                                button.indicator.color], [row.border, row.dot, row.fill]);
            if (row.tag === "pressed") {
                mouseRelease(button, 12, 12);
            }
        }

        function test_sizes() {
            button.forceActiveFocus(Qt.TabFocusReason);
            compare([button.width, button.height, root.dot.parent.radius, outlineOf(button).radius],
                    [24, 24, 13, 6]);
            compare([root.dot.x, root.dot.width, root.dot.radius, root.dot.visible],
                    [6, 12, 7, false]);
        }

        name: "RadioButton"
        subject: button
        signalName: "toggled"
    }
}
