import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

UiKitBase.AppMenu {
    id: menu

    readonly property var image: children[0].children[0]
    readonly property var button: children[0].children[2]

    width: 318
    height: 400
    logo: "qrc:/ui_kit/images/logo_big"
    buttonText: "Settings"

    Component {
        id: bare

        UiKitBase.AppMenu {}
    }

    KitTestCase {
        function test_defaultLogoBelongsToTheProgramThatHasIt() {
            ignoreWarning(/Cannot open: qrc:\/rdp_client\/images\/icon-avatar/);
            const image = createTemporaryObject(bare, menu).children[0].children[0];
            tryCompare(image, "status", Image.Error);
        }

        function test_buttonChecksOnEachWayOfPressing() {
            menu.button.forceActiveFocus(Qt.TabFocusReason);
            press(Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            compare([spy.count, menu.buttonChecked], [3, true]);
            mouseClick(menu.button);
            compare([spy.count, menu.buttonChecked], [4, false]);
        }

        function test_states() {
            const [icon, label] = Array.from(menu.button.contentItem.children);
            compare([menu.image.x, menu.image.y, menu.image.width, menu.button.x, menu.button.width,
                     menu.button.height], [115, 16, 88, 12, 294, 50]);
            const colors = () => [menu.button.background.color, label.color];
            compareLooks(colors, ["#00000000", ["contentPrimary", "#ffffff"]]);
            verify(/settings_gear$/.test(icon.source));
            menu.buttonChecked = true;
            menu.buttonEnabled = false;
            compareLooks(colors, [["contentBackground", "#171f1d"],
                                  ["contentDisabled", "#808080"]]);
            verify(/settings_gear_disabled$/.test(icon.source));
            menu.buttonChecked = false;
            menu.buttonEnabled = true;
        }

        name: "AppMenu"
        subject: menu
        signalName: "buttonActivated"
    }
}
