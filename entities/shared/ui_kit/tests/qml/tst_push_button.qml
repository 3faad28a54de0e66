import QtQuick

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

    KitTestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            root.clicks = 0;
            button.state = "Normal";
            mouseMove(root, 390, 290);
            root.forceActiveFocus();
        }

        function test_coloursOfAState_data() {
            return [
                { tag: "Normal", roles: ["purplePrimary", "purpleSubPrimary", "purpleSecondary",
                                         "contentPrimary"], content: "#ffffff" },
                { tag: "Light", roles: ["purpleBackground", "purpleBorder", "purpleDisabled",
                                        "purplePrimary"], content: "#9c9cff" },
                { tag: "Alternative", roles: ["contentBackground", "contentBorder",
                                              "contentDisabled", "contentPrimary"],
                  content: "#ffffff" }
            ];
        }

        function test_coloursOfAState(row) {
            button.state = row.tag;
            const literals = ["#9c9cff", "#8c8cff", "#9c9cff", row.content];
            compareLooks(() => [button.normalColor, button.hoverColor, button.pressedColor,
                                button.contentColor],
                         row.roles.map((role, i) => [role, literals[i]]));
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

        function test_keysClick() {
            button.forceActiveFocus();
            press(Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            button.Accessible.pressAction();
            compare(root.clicks, 4);
            button.enabled = false;
            button.Accessible.pressAction();
            compare(root.clicks, 4);
            button.enabled = true;
        }

        function test_rightClickTakesTheFocusAndDoesNotClick() {
            mouseClick(button, 20, 20, Qt.RightButton);
            verify(button.activeFocus);
            compare(root.clicks, 0);
        }

        function test_outlineShowsKeyboardFocusOnly() {
            button.forceActiveFocus(Qt.TabFocusReason);
            verify(outlineOf(button)?.visible);
            root.forceActiveFocus();
            button.forceActiveFocus(Qt.MouseFocusReason);
            verify(!outlineOf(button));
        }

        function test_hintIsThereOnlyWithAText() {
            const column = button.contentItem;
            const height = column.implicitHeight;
            button.hintText = "more";
            tryVerify(() => column.implicitHeight > height);
            button.hintText = "";
            tryCompare(column, "implicitHeight", height);
        }

        name: "PushButton"
    }
}
