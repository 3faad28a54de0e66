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
            paletteProvider.palette = darkPalette;
            box.enabled = true;
            box.checked = false;
            box.width = 20;
            mouseMove(root, 490, 290);
            tryCompare(root.area, "containsMouse", false);
            root.forceActiveFocus();
        }

        function test_looks_data() {
            return [
                { tag: "plain", fill: ["backgroundPrimary", "#050505"],
                  border: ["contentSecondary", "#8fffffff"] },
                { tag: "hover", hover: true, fill: ["backgroundPrimary", "#050505"],
                  border: "#adffffff" },
                { tag: "press", press: true, fill: ["backgroundPrimary", "#050505"],
                  border: "#ccffffff" },
                { tag: "checked", checked: true, fill: ["purplePrimary", "#9c9cff"] },
                { tag: "checked, hover", checked: true, hover: true,
                  fill: ["purpleSubPrimary", "#9c9cff"] },
                { tag: "checked, press", checked: true, press: true,
                  fill: ["purpleSecondary", "#8c8cff"] },
                { tag: "disabled", disabled: true, fill: ["contentBackground", "#000000"],
                  border: ["contentDisabled", "#57ffffff"] },
                { tag: "disabled, checked", disabled: true, checked: true,
                  fill: ["contentBackground", "#000000"],
                  border: ["contentDisabled", "#57ffffff"] }
            ];
        }

        function test_looks(row) {
            box.checked = row.checked ?? false;
            box.enabled = !row.disabled;
            if (row.press || row.hover) {
                mouseMove(box, 10, 10);
                tryCompare(root.area, "containsMouse", true);
            }
            if (row.press) {
                mousePress(box, 10, 10);
            }
            compareLooks(() => [box.indicator.color, box.indicator.border.color],
                         [row.fill, row.border ?? row.fill]);
            const mark = box.indicator.children[0];
            compare([mark.visible, String(mark.source).split("_").pop()],
                    [row.checked ?? false, row.disabled ? "disable" : "enable"]);
            if (row.press) {
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

        function test_keysToggle_data() {
            return clickKeys();
        }

        function test_keysToggle(row) {
            keyClick(Qt.Key_Tab);
            verify(box.visualFocus);
            keyClick(row.key);
            verify(box.checked);
        }

        function test_textStandsBesideTheIndicator() {
            compare([box.width, box.height, root.label.y + root.label.baselineOffset,
                     root.label.leftPadding], [20, 20, 15, 20 + box.spacing]);
            compare([root.area.width, root.area.height],
                    [20 + root.label.contentWidth + 10, Math.max(20, root.label.height)]);
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
