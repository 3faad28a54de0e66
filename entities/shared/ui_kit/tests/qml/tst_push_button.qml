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
            mouseMove(root, 390, 290);
            root.forceActiveFocus();
        }

        function test_coloursOfAState_data() {
            return [
                { tag: "Normal", colors: ["#8c8cff", "#9c9cff", "#ababff", "#ffffff"] },
                { tag: "Light", colors: ["#1f8c8cff", "#338c8cff", "#478c8cff", "#8c8cff"] },
                { tag: "Alternative", colors: ["#1fffffff", "#29ffffff", "#57ffffff", "#ffffff"] }
            ];
        }

        function test_coloursOfAState(row) {
            button.state = row.tag;
            compare([String(button.normalColor), String(button.hoverColor),
                     String(button.pressedColor), String(button.contentColor)], row.colors);
            paletteProvider.palette = null;
            compare([String(button.normalColor), String(button.hoverColor),
                     String(button.pressedColor)], ["#9c9cff", "#8c8cff", "#9c9cff"]);
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
            compare([root.clicks, button.width, button.height, button.radius], [1, 190, 52, 16]);
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

        function test_outlineShowsKeyboardFocusOnly() {
            const outline = Array.from(button.children).find(child => "outlinedComponent" in child);
            button.forceActiveFocus(Qt.TabFocusReason);
            verify(outline.visible);
            root.forceActiveFocus();
            button.forceActiveFocus(Qt.MouseFocusReason);
            verify(!outline.visible);
        }

        function test_hintIsThereOnlyWithAText() {
            const column = button.contentItem.children[0];
            const height = column.height;
            button.hintText = "more";
            tryVerify(() => column.height > height);
            button.hintText = "";
            tryCompare(column, "height", height);
        }

        name: "PushButton"
        when: windowShown
    }
}
