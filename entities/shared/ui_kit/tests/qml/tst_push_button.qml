import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    property int clicks: 0

    width: 400
    height: 300

    UiKitBase.PushButton {
        id: button

        text: "Press"

        onClicked: ++root.clicks
    }

    TestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            root.clicks = 0;
            button.state = "Normal";
            button.enabled = true;
            button.hintText = "";
            mouseMove(root, 390, 290);
            root.forceActiveFocus();
        }

        function colorsOf(state) {
            button.state = state;
            return [String(button.normalColor), String(button.hoverColor),
                    String(button.pressedColor), String(button.contentColor)];
        }

        function test_coloursOfAState_data() {
            return [
                { tag: "Normal", dark: ["#8c8cff", "#9c9cff", "#ababff", "#ffffff"],
                  bare: ["#9c9cff", "#8c8cff", "#9c9cff", "#ffffff"] },
                { tag: "Light", dark: ["#1f8c8cff", "#338c8cff", "#478c8cff", "#8c8cff"],
                  bare: ["#9c9cff", "#8c8cff", "#9c9cff", "#9c9cff"] },
                { tag: "Alternative", dark: ["#1fffffff", "#29ffffff", "#57ffffff", "#ffffff"],
                  bare: ["#9c9cff", "#8c8cff", "#9c9cff", "#ffffff"] }
            ];
        }

        function test_coloursOfAState(row) {
            compare(colorsOf(row.tag), row.dark);
            paletteProvider.palette = null;
            compare(colorsOf(row.tag), row.bare);
        }

        function test_aPaletteWithoutTheRoleGivesNoLiteral() {
            paletteProvider.palette = lightPalette;
            verify(!button.normalColor.valid);
        }

        function test_backgroundFollowsTheMouse() {
            tryCompare(button.background, "color", button.normalColor);
            mouseMove(button, 5, 26);
            tryCompare(button.background, "color", button.hoverColor);
            mousePress(button, 5, 26);
            tryCompare(button.background, "color", button.pressedColor);
            mouseRelease(button, 5, 26);
            button.enabled = false;
            tryCompare(button.background, "color", button.disabledColor);
        }

        function test_sizeAndRadius() {
            compare([button.width, button.height, button.radius], [190, 52, 16]);
            button.fontPixelSize = 20;
            compare(caption().font.pixelSize, 20);
            button.fontPixelSize = 16;
        }

        function test_enterAndReturnClick() {
            button.forceActiveFocus();
            keyClick(Qt.Key_Enter);
            keyClick(Qt.Key_Return);
            compare(root.clicks, 2);
        }

        function test_rightClickTakesTheFocusAndDoesNotClick() {
            mouseClick(button, 20, 20, Qt.RightButton);
            verify(button.activeFocus);
            compare(root.clicks, 0);
        }

        function test_outlineShowsKeyboardFocusOnly_data() {
            return [
                { tag: "keyboard", reason: Qt.TabFocusReason, shown: true },
                { tag: "mouse", reason: Qt.MouseFocusReason, shown: false },
                { tag: "program", reason: Qt.OtherFocusReason, shown: false }
            ];
        }

        function test_outlineShowsKeyboardFocusOnly(row) {
            button.forceActiveFocus(row.reason);
            const outline = Array.from(button.children).find(child => "outlinedComponent" in child);
            compare(outline.visible, row.shown);
            compare(outline.radius, 20);
        }

        function test_hintIsThereOnlyWithAText() {
            const column = caption().parent;
            const hint = () => findText(column, "more");
            verify(!hint());
            button.hintText = "more";
            tryVerify(() => hint() !== null);
            compare(hint().font.pixelSize, 12);
            compare(hint().color.toString(), "#8fffffff");
        }

        function caption() {
            return findText(button.contentItem, button.text);
        }

        function findText(item, text) {
            if (item.text === text) {
                return item;
            }
            for (let i = 0; i < item.children.length; ++i) {
                const found = findText(item.children[i], text);
                if (found) {
                    return found;
                }
            }
            return null;
        }

        name: "PushButton"
        when: windowShown
    }
}
