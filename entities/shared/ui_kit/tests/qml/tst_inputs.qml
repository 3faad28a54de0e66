import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var box: line.children[0]
    readonly property var field: box.children[1]
    readonly property var resetButton: box.children[2]
    readonly property var areaBox: area.children[0]

    width: 900
    height: 300

    UiKitBase.LineEdit {
        id: line

        defaultText: "first"
    }

    UiKitBase.TextEdit {
        id: area

        x: 450
        defaultText: "first"
    }

    UiKitBase.TextEdit {
        id: next

        x: 450
        y: 150
    }

    SignalSpy {
        id: clicks

        target: line
        signalName: "clicked"
    }

    KitTestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            line.nextFocusItem = null;
            line.inputMask = "";
            [line, area].forEach(input => {
                input.text = "first";
                input.isEditable = true;
                input.isEnabled = true;
                input.errorVisible = false;
                input.hintMessage = "";
                input.tooltipText = "";
            });
            mouseMove(root, 890, 290);
            root.forceActiveFocus();
            spy.target = line;
            spy.clear();
            clicks.clear();
        }

        function test_textIsToldWhenItIsEdited() {
            line.forceFocus();
            keyClick(Qt.Key_End);
            keyClick("x");
            compare(spy.count, 0);
            keyClick(Qt.Key_Return);
            compare([spy.count, spy.signalArguments[0][0]], [1, "firstx"]);
            spy.target = area;
            area.forceFocus();
            keyClick("y");
            keyClick(Qt.Key_Return);
            compare([spy.count, area.text], [1, "y\nfirst"]);
            keyClick(Qt.Key_Tab);
            compare([spy.count, next.activeInputFocus], [2, true]);
            keyClick(Qt.Key_Backtab);
            verify(area.activeInputFocus);
        }

        function test_resetButton_data() {
            return [
                { tag: "editable", editable: true, text: "", updates: 1, clicks: 0 },
                { tag: "not editable", editable: false, text: "first", updates: 0, clicks: 1 }
            ];
        }

        function test_resetButton(row) {
            line.isEditable = row.editable;
            verify(root.resetButton.visible);
            mouseClick(line, 405 - 16 - 12, 26);
            compare([line.text, spy.count, clicks.count], [row.text, row.updates, row.clicks]);
            compare(root.resetButton.visible, row.text !== "");
            verify(!root.resetButton.activeFocus);
        }

        function test_textLeavesTheButtonItsSide() {
            const paddings = () => [root.field.leftPadding, root.field.rightPadding];
            compare(paddings(), [16, 48]);
            line.LayoutMirroring.enabled = line.LayoutMirroring.childrenInherit = true;
            compare([...paddings(), root.resetButton.x], [48, 16, 16]);
            line.LayoutMirroring.enabled = false;
        }

        function test_isAButtonWhenItCannotBeEdited() {
            line.isEditable = false;
            mouseClick(line, 50, 26);
            compare(clicks.count, 1);
            line.forceFocus();
            keyClick("x");
            keyClick(Qt.Key_Return);
            compare([clicks.count, line.text], [2, "first"]);
            line.isEnabled = false;
            mouseClick(line, 50, 26);
            compare([clicks.count, root.resetButton.visible], [2, false]);
        }

        function test_cursorSkipsWhatTheMaskLeavesEmpty() {
            line.inputMask = "0000;_";
            line.text = "12";
            line.forceFocus();
            keyClick(Qt.Key_End);
            compare(root.field.cursorPosition, 2);
            keyClick("3");
            compare([line.text, line.displayText], ["123", "123_"]);
        }

        function test_tabGoesWhereItIsTold() {
            line.nextFocusItem = next;
            line.forceFocus();
            keyClick(Qt.Key_Tab);
            verify(next.activeInputFocus);
        }

        function test_border_data() {
            return [
                { tag: "plain", role: "contentBorder", literal: "#28ffffff" },
                { tag: "focus", focus: true, role: "purplePrimary", literal: "#8c8cff" },
                { tag: "error", error: true, role: "systemErrorPrimary", literal: "#f34257" },
                { tag: "disabled", disabled: true, error: true, role: "contentDisabled",
                  literal: "#14ffffff" }
            ];
        }

        function test_border(row) {
            line.isEnabled = area.isEnabled = !row.disabled;
            line.errorVisible = area.errorVisible = row.error ?? false;
            line.showFocusBorder = area.showFocusBorder = row.focus ?? false;
            const look = [row.role, row.literal];
            compareLooks(() => [root.box, root.areaBox].map(box => box.border.color), [look, look]);
            line.showFocusBorder = area.showFocusBorder = false;
        }

        function test_hintGivesWayToTheError() {
            verify(!line.hintVisible);
            line.hintMessage = "hint";
            verify(line.hintVisible);
            line.errorVisible = true;
            verify(!line.hintVisible);
        }

        function test_tooltipFollowsTheMouse() {
            line.tooltipText = "Tip";
            const loader = line.children[3];
            tryVerify(() => loader.item);
            mouseMove(line, 50, 26);
            tryCompare(line, "containsMouse", true);
            const tooltip = Array.from(loader.item.resources)
                .find(part => "triangleHeight" in part);
            compare([tooltip.state, tooltip.visible], ["Visible", false]);
            mouseClick(line, 50, 26);
            verify(line.activeInputFocus);
            tryCompare(tooltip, "visible", true);
            compare(tooltip.y, 56);
            line.tooltipText = "";
            verify(!line.containsMouse);
        }

        function test_sizes() {
            compare([line.width, line.height, area.width, area.height, root.box.radius],
                    [405, 52, 405, 104, 12]);
            line.height = area.height = 124;
            compare([root.box.height, root.areaBox.height], [52, 104]);
            area.height = 224;
            compare(root.areaBox.height, 204);
            area.height = undefined;
            line.height = undefined;
        }

        name: "Inputs"
        signalName: "textUpdated"
    }
}
