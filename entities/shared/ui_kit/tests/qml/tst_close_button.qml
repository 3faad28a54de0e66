import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var background: button.children[0]
    readonly property var inner: button.children[1]

    width: 200
    height: 200

    UiKitBase.CloseButton {
        id: button
    }

    KitTestCase {
        function init() {
            root.forceActiveFocus();
            mouseMove(root, 190, 190);
            tryCompare(button, "hovered", false);
            spy.clear();
        }

        function test_actsOnceOnThePress() {
            mousePress(button, 20, 20);
            compare(spy.count, 1);
            mouseRelease(button, 20, 20);
            compare(spy.count, 1);
        }

        function test_actsOnKeysAndForAScreenReader() {
            keyClick(Qt.Key_Tab);
            verify(button.activeButtonFocus && inner.children[0].visible);
            press(Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            compare(spy.count, 3);
            root.inner.Accessible.pressAction();
            compare(spy.count, 4);
        }

        function test_backgroundShowsHoverAndFocus() {
            const still = ["contentBackground", "#14ffffff"];
            const lit = ["contentBorder", "#29ffffff"];
            compareLooks(() => [root.background.color], [still]);
            mouseMove(button, 2, 20);
            tryCompare(button, "hovered", true);
            compareLooks(() => [root.background.color], [lit]);
            mouseMove(root, 190, 190);
            tryCompare(button, "hovered", false);
            mouseClick(button, 20, 20, Qt.RightButton);
            compareLooks(() => [root.background.color], [lit]);
            compare(spy.count, 0);
        }

        function test_sizes() {
            compare([button.width, root.background.height, root.background.radius,
                     root.inner.icon.width, root.inner.width], [40, 40, 12, 16, 40]);
        }

        // A missing icon is not tried for ever.
        function test_iconIsAsSharpAsTheScreen() {
            const image = root.inner.contentItem.children[0];
            tryCompare(image, "status", Image.Ready);
            compare([image.sourceSize.width, image.fillMode, String(image.color)],
                    [16 * Screen.devicePixelRatio, Image.PreserveAspectFit, "#ffffff"]);
            ignoreWarning(/Cannot open: qrc:\/nowhere/);
            button.icon = "qrc:/nowhere";
            tryCompare(image, "status", Image.Error);
            button.icon = button.defaultIcon;
        }

        name: "CloseButton"
        subject: button
        signalName: "activated"
    }
}
