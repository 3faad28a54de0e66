import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Rectangle {
    id: root

    width: 400
    height: 200
    color: "black"

    Item {
        id: launchButton
    }

    Component {
        id: bubble

        UiKitBase.TaskbarTooltip {
            width: 100
            height: 60
            color: "white"
        }
    }

    Component {
        id: buttonTooltip

        UiKitBase.AppButtonTooltip {}
    }

    Component {
        id: windowTooltip

        UiKitBase.AppWindowTooltip {}
    }

    // Left as declared, a window's opacity makes some platforms complain when it is shown.
    Component {
        id: textWindow

        UiKitBase.TooltipTextWindow {
            opacity: 1
            text: "Two\nlines"
        }
    }

    KitTestCase {
        function test_direction_data() {
            const Tooltip = UiKitBase.TaskbarTooltip;
            return [
                { tag: "Up", direction: Tooltip.Up, tip: [50, 3], free: [30, 3], start: true },
                { tag: "Down", direction: Tooltip.Down, tip: [50, 57], free: [30, 57] },
                { tag: "Left", direction: Tooltip.Left, tip: [3, 30], free: [3, 20], start: true },
                { tag: "Right", direction: Tooltip.Right, tip: [97, 30], free: [97, 20] },
                { tag: "Down, transposed", direction: Tooltip.Down, transposed: true,
                  tip: [97, 30], free: [97, 20] }
            ];
        }

        function test_direction(row) {
            const tooltip = createTemporaryObject(bubble, root, {
                directionArrow: row.direction, transposed: row.transposed ?? false
            });
            tryVerify(() => Qt.colorEqual(grabImage(root).pixel(...row.tip), "white"));
            verify(Qt.colorEqual(grabImage(root).pixel(...row.free), "black"));
            compare(tooltip.newDefault, row.start ?? false);
        }

        function test_buttonTooltipBelongsToItsButton() {
            const tooltip = createTemporaryObject(buttonTooltip, root);
            compare([tooltip.parent, tooltip.visible], [launchButton, false]);
            tooltip.text = "<b>Program</b>";
            const label = tooltip.children[1];
            compare([tooltip.visible, tooltip.newDefault, String(tooltip.color)],
                    [true, true, "#242424"]);
            compare([tooltip.width, tooltip.height, label.textFormat],
                    [label.implicitWidth + 32, label.implicitHeight + 22, Text.PlainText]);
        }

        function test_windowTooltipWrapsALongTitle() {
            const brief = createTemporaryObject(windowTooltip, root, { text: "short" });
            const lengthy = createTemporaryObject(windowTooltip, root, {
                text: "a title that goes on and on until it needs more than a line"
            });
            compare([brief.wrapMode, lengthy.wrapMode], [Text.NoWrap, Text.Wrap]);
            verify(brief.width < 100 && lengthy.width > 200 && lengthy.width <= 290 + 32);
            verify(lengthy.height > brief.height * 1.4);
        }

        function test_windowComesToThePoint_data() {
            return [{ tag: "beside", transposed: true, extra: [38, 16] },
                    { tag: "above", transposed: false, extra: [32, 22] }];
        }

        function test_windowComesToThePoint(row) {
            const tooltip = createTemporaryObject(textWindow, root, { transposed: row.transposed });
            tooltip.showOnGlobalCoords(Qt.point(100, 100));
            const label = tooltip.contentItem.children[0].children[1];
            const width = Math.ceil(label.implicitWidth) + row.extra[0];
            const height = Math.ceil(label.implicitHeight) + row.extra[1];
            compare([tooltip.width, tooltip.height, tooltip.visible], [width, height, true]);
            const at = row.transposed ? [116, 100 - height / 2] : [100 - width / 2, 100 - height];
            compare([tooltip.x, tooltip.y], at.map(Math.trunc));
        }

        name: "TaskbarTooltip"
    }
}
