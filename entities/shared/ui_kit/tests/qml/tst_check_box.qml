import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var label: box.children[0]
    readonly property var area: box.children[3]
    readonly property var tooltipLoader: box.children[5]

    width: 500
    height: 300

    UiKitBase.CheckBox {
        id: box

        x: 50
        y: 50
        text: "Remember"
    }

    KitTestCase {
        function init() {
            box.enabled = true;
            box.checked = false;
            box.width = 20;
            mouseMove(root, 490, 290);
            tryCompare(root.area, "containsMouse", false);
            root.forceActiveFocus();
        }

        function test_looks_data() {
            const black = ["backgroundPrimary", "#050505"];
            const disabled = [["contentBackground", "#000000"], ["contentDisabled", "#57ffffff"]];
            return [
                { tag: "plain", look: [black, ["contentSecondary", "#8fffffff"]] },
                { tag: "hover", look: [black, "#adffffff"] },
                { tag: "press", look: [black, "#ccffffff"] },
                { tag: "checked", look: Array(2).fill(["purplePrimary", "#9c9cff"]) },
                { tag: "checked, hover", look: Array(2).fill(["purpleSubPrimary", "#9c9cff"]) },
                { tag: "checked, press", look: Array(2).fill(["purpleSecondary", "#8c8cff"]) },
                { tag: "disabled", look: disabled },
                { tag: "disabled, checked", look: disabled }
            ];
        }

        function test_looks(row) {
            const is = state => row.tag.includes(state);
            box.checked = is("checked");
            box.enabled = !is("disabled");
            if (is("press") || is("hover")) {
                mouseMove(box, 10, 10);
                tryCompare(root.area, "containsMouse", true);
            }
            if (is("press")) {
                mousePress(box, 10, 10);
            }
            compareLooks(() => [box.indicator.color, box.indicator.border.color], row.look);
            const mark = box.indicator.children[0];
            compare([mark.visible, String(mark.source).split("_").pop()],
                    [is("checked"), is("disabled") ? "disable" : "enable"]);
            if (is("press")) {
                mouseRelease(box, 10, 10);
            }
        }

        function test_clicksCount_data() {
            return [
                { tag: "indicator", x: 5, y: 5, toggles: true },
                { tag: "text", x: 60, y: 10, toggles: true },
                { tag: "beside the text", x: 200, y: 10, toggles: false },
                { tag: "right button", x: 5, y: 5, button: Qt.RightButton, toggles: false }
            ];
        }

        function test_clicksCount(row) {
            box.width = 300;
            mouseMove(box, row.x, row.y);
            mouseClick(box, row.x, row.y, row.button ?? Qt.LeftButton);
            compare([box.checked, box.activeFocus], [row.toggles, row.button !== undefined]);
        }

        function test_keysToggle() {
            keyClick(Qt.Key_Tab);
            verify(box.visualFocus);
            press(Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            verify(box.checked);
        }

        function test_tooltipTellsWhyItIsDisabled() {
            box.tooltipText = "Not now";
            compare(root.tooltipLoader.active, false);
            box.enabled = false;
            tryVerify(() => root.tooltipLoader.item);
            const tooltip = root.tooltipLoader.item;
            compare([tooltip.state, tooltip.radius], ["Invisible", 12]);
            mouseMove(box, 10, 10);
            tryCompare(tooltip, "visible", true);
            compare([tooltip.x, tooltip.y], [root.label.contentWidth / 2 - tooltip.width / 2 + 30,
                                             root.label.height]);
            mouseMove(root, 490, 290);
            tryCompare(tooltip, "visible", false);
            box.tooltipText = "";
            tryCompare(root.tooltipLoader, "item", null);
        }

        name: "CheckBox"
    }
}
