import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var texts: button.children[2].children
    readonly property var control: button.children[3].children[0]
    readonly property var knob: control.indicator.children[0]

    width: 500
    height: 300

    UiKitBase.SlideButton {
        id: button

        width: 400
        text: "Network"
        description: "Of all the networks the one that is the nearest"
    }

    KitTestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            button.checked = false;
            button.progress = false;
            button.enable = true;
            spy.clear();
        }

        function test_announcesAndDoesNotMove_data() {
            return [
                { tag: "card", click: () => mouseClick(button, 30, 30) },
                { tag: "switch", click: () => mouseClick(button, 380, 25) },
                { tag: "drag", click: () => mouseDrag(button, 350, 25, 30, 0) },
                ...clickKeys()
            ];
        }

        function test_disabledItIsLeftAlone() {
            button.enable = false;
            root.forceActiveFocus();
            mouseClick(button, 30, 30);
            mouseClick(button, 30, 30, Qt.RightButton);
            root.control.Accessible.pressAction();
            compare([spy.count, root.control.activeFocus, root.activeFocus], [0, false, true]);
        }

        function test_announcesAndDoesNotMove(row) {
            if (row.key) {
                root.control.forceActiveFocus(Qt.TabFocusReason);
                keyClick(row.key);
            } else {
                row.click();
            }
            compare([spy.count, root.knob.x, button.checked], [1, 4, false]);
        }

        function test_disabledDoesNothing() {
            button.enable = false;
            mouseClick(button, 30, 30);
            compare(spy.count, 0);
        }

        function test_looks_data() {
            return [
                { tag: "off", color: ["contentDisabled", "#808080"], knob: 4,
                  description: "#808080" },
                { tag: "on", checked: true, color: ["purplePrimary", "#8c8cff"], knob: 20,
                  description: "#28e075" },
                { tag: "under way", checked: true, progress: true,
                  color: ["purpleSubPrimary", "#9941b79d"], knob: 20, description: "#808080" }
            ];
        }

        function test_looks(row) {
            button.checked = row.checked ?? false;
            button.progress = row.progress ?? false;
            compareLooks(() => [root.control.indicator.color, root.texts[1].color,
                                button.pressedColor],
                         [row.color, row.description, ["purpleSecondary", "#9941b79d"]]);
            compare([root.knob.x, root.knob.y, root.control.mapToItem(button, 0, 0).x],
                    [row.knob, 4, 400 - 16 - 40]);
        }

        function test_descriptionLeavesRoom() {
            button.width = 200;
            compare(root.texts[1].width, 200 - 40 - 16 - 32);
            compare([root.texts[0].lineHeight, root.texts[1].lineHeight], [26, 20]);
            button.hasStateIcon = true;
            compare(root.texts[1].width, 200 - 40 - 16 - 32 - button.statusImage.width);
            button.hasStateIcon = false;
            button.width = 400;
        }

        name: "SlideButton"
        subject: button
        signalName: "clicked"
    }
}
