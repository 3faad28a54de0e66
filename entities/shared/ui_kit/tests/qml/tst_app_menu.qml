import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

UiKitBase.AppMenu {
    id: menu

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

        name: "AppMenu"
        subject: menu
        signalName: "buttonActivated"
    }
}
