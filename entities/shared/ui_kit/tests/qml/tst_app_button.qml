import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    property var events: []

    width: 200
    height: 100

    UiKitBase.AppButton {
        id: button

        readonly property var frame: children[0]
        readonly property var indicator: children[1]

        onEntered: root.events.push("entered")
        onExited: root.events.push("exited")
        onClicked: mouse => root.events.push(mouse.button ?? mouse)
    }

    KitTestCase {
        function init() {
            mouseMove(root, 190, 90);
            root.events = [];
        }

        function test_dashes_data() {
            return [{ tag: "0", dashes: [] }, { tag: "1", dashes: [16] },
                    { tag: "2", dashes: [11, 21] }, { tag: "9", dashes: [11, 21] }];
        }

        function test_dashes(row) {
            button.windowsCount = Number(row.tag);
            const line = button.indicator.children[0];
            const dashes = Array.from(line.children).filter(dash => dash.color !== undefined);
            tryVerify(() => !row.dashes.length || line.x === row.dashes[0]);
            compare(dashes.map(dash => line.x + dash.x), row.dashes);
            verify(dashes.every(dash => dash.width === 8 && dash.height === 2));
            compare([button.indicator.visible, button.indicator.y, button.width, button.height],
                    [row.dashes.length > 0, 46, 40, 48]);
        }

        function test_mouse() {
            mouseMove(button, 20, 20);
            mouseClick(button);
            mouseClick(button, 20, 20, Qt.RightButton);
            verify(button.containsMouse && button.activeFocus);
            mouseMove(root, 190, 90);
            compare(root.events, ["entered", Qt.LeftButton, "exited"]);
        }

        function test_keys() {
            const focus = () => [button.focus, String(button.frame.border.color)];
            root.forceActiveFocus();
            keyClick(Qt.Key_Tab);
            compare(focus(), [true, "#ffffff"]);
            press(Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space);
            compare(root.events, Array(3).fill(Qt.LeftButton));
            button.visible = false;
            button.visible = true;
            compare(focus(), [false, "#00000000"]);
        }

        name: "AppButton"
    }
}
