import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Rectangle {
    id: root

    width: 100
    height: 60
    color: "black"

    Component {
        id: subject

        UiKitBase.RoundedRect {
            width: 90
            height: 60
        }
    }

    KitTestCase {
        // A fill without colour lets the border show, which lies under it.
        function test_aChangeIsPaintedAnew_data() {
            return [
                { tag: "color", value: "blue", x: 45, y: 30, before: "white", after: "blue" },
                { tag: "radius", value: 0, x: 1, y: 1, before: "black", after: "white" },
                { tag: "drawTopLeftCorner", value: false, x: 1, y: 1, before: "black",
                  after: "white" },
                { tag: "drawTopRightCorner", value: false, x: 88, y: 1, before: "black",
                  after: "white" },
                { tag: "drawBottomRightCorner", value: false, x: 88, y: 58, before: "black",
                  after: "white" },
                { tag: "drawBottomLeftCorner", value: false, x: 1, y: 58, before: "black",
                  after: "white" },
                { tag: "borderColor", value: "red", x: 45, y: 0, before: "blue", after: "red",
                  fill: "transparent" },
                { tag: "width", value: 50, x: 48, y: 1, before: "white", after: "black" },
                { tag: "height", value: 30, x: 0, y: 29, before: "white", after: "black" }
            ];
        }

        function test_aChangeIsPaintedAnew(row) {
            const shows = (x, y, color) => Qt.colorEqual(grabImage(root).pixel(x, y), color);
            const rect = createTemporaryObject(subject, root);
            compare([rect.radius, String(rect.color)], [20, "#80000000"]);
            rect.borderWidth = 4;
            rect.borderColor = "blue";
            rect.color = row.fill ?? "white";
            tryVerify(() => shows(45, 0, row.fill ? "blue" : "white"));
            verify(shows(row.x, row.y, row.before));
            rect[row.tag] = row.value;
            tryVerify(() => shows(row.x, row.y, row.after));
        }

        name: "RoundedRect"
    }
}
