import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var label: tooltip.contentItem

    width: 400
    height: 300

    Item {
        id: field

        width: 300
        height: 20

        UiKitBase.ControlsTooltip {
            id: tooltip

            y: 30
            text: "<b>Tip</b> of the day"
            color: "#ff0000"
            radius: 12
        }
    }

    KitTestCase {
        function init() {
            tooltip.state = "Invisible";
            verify(!tooltip.visible);
        }

        function test_appearsAfterAWhileAndGoesAtOnce() {
            const start = Date.now();
            tooltip.state = "Visible";
            verify(!tooltip.visible);
            tryCompare(tooltip, "visible", true);
            const passed = Date.now() - start;
            verify(passed > 380 && passed < 2000, "appeared after " + passed + " ms");
            tooltip.state = "Invisible";
            verify(!tooltip.visible);
        }

        function test_doesNotAppearOnceItWasToldToGo() {
            const other = timer.createObject(root);
            tooltip.state = "Visible";
            tooltip.state = "Invisible";
            tryCompare(other, "running", false);
            verify(!tooltip.visible);
            other.destroy();
        }

        function test_isPlainTextBetweenItsPaddings() {
            compare([root.label.textFormat, root.label.font.weight], [Text.PlainText, Font.Medium]);
            compare([tooltip.fullWidth, tooltip.width],
                    Array(2).fill(Math.ceil(root.label.contentWidth + 32)));
            compare([tooltip.background.height, tooltip.triangleVertex],
                    [root.label.height + 16, Math.floor(tooltip.width / 2)]);
        }

        function test_pointsUp() {
            tooltip.state = "Visible";
            tryCompare(tooltip, "opened", true);
            const paints = (x, y) => grabImage(root).pixel(tooltip.x + x, tooltip.y + y).toString();
            const middle = tooltip.triangleVertex;
            tryVerify(() => paints(middle, 3) === "#ff0000");
            compare([[middle - 20, 3], [middle, tooltip.height - 3], [middle - 20, 9]]
                    .map(point => paints(...point) === "#ff0000"), [false, false, true]);
            tooltip.triangleVertex = 40;
            tryVerify(() => paints(40, 3) === "#ff0000");
        }

        name: "ControlsTooltip"
    }

    Component {
        id: timer

        Timer {
            interval: 450
            running: true
        }
    }
}
