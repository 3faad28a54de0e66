import QtQuick
import QtQuick.Controls

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property string longTitle: "A title that needs more room than a row can give"

    width: 1000
    height: 800

    UiKitBase.AppWindows {
        id: list

        readonly property var panel: children[0]
        readonly property var view: panel.children[0]

        function tooltip() : var {
            return Array.from(panel.children).find(child => "fullWidth" in child);
        }

        appWindowsModel: ListModel {}
    }

    KitTestCase {
        function fill(count: int) {
            mouseMove(root, 990, 790);
            root.forceActiveFocus();
            spy.clear();
            list.appWindowsModel.clear();
            for (let i = 0; i < count; ++i) {
                list.appWindowsModel.append({ windowTitle: i % 2 ? root.longTitle : `Window ${i}`,
                                              windowId: `id${i}`, appId: "app" });
            }
            list.view.forceLayout();
        }

        function test_size_data() {
            return [
                { tag: "0", size: [0, 0] }, { tag: "1", size: [300, 60] },
                { tag: "13", size: [300, 684] }, { tag: "14", size: [300, 684], bar: true }
            ];
        }

        function test_size(row) {
            fill(Number(row.tag));
            compare([list.panel.width, list.panel.height, list.view.ScrollBar.vertical.policy],
                    [...row.size, row.bar ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff]);
        }

        function test_aThousandRowsAreMadeAsTheyAreSeen() {
            fill(1000);
            list.view.positionViewAtEnd();
            tryVerify(() => list.view.itemAtIndex(999));
            verify(list.view.contentItem.children.length < 60);
        }

        function test_choosesAWindow() {
            fill(3);
            mouseMove(list, 100, 4 + 52 + 20);
            tryCompare(list.view, "currentIndex", 1);
            mouseClick(list, 100, 4 + 52 + 20);
            list.view.forceActiveFocus(Qt.TabFocusReason);
            press(Qt.Key_Down, Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            compare(spy.signalArguments.map(row => row[0]), ["id1", "id2", "id2", "id2"]);
        }

        function test_anElidedTitleHasATooltip_data() {
            return [{ tag: "on the right", x: 0 }, { tag: "on the left", x: 690 }];
        }

        function test_anElidedTitleHasATooltip(row) {
            fill(3);
            list.x = row.x;
            mouseMove(list, 100, 4 + 52 + 20);
            tryVerify(() => list.tooltip() && list.tooltip().visible);
            const tooltip = list.tooltip();
            compare([list.isTooltipOnTheRight(), tooltip.newDefault, tooltip.text],
                    [row.x === 0, row.x === 0, root.longTitle]);
            compare([tooltip.x, tooltip.y + tooltip.height / 2],
                    [row.x === 0 ? 300 : -tooltip.width, 4 + 52 + 26]);
            mouseMove(list, 100, 20);
            tryVerify(() => !list.tooltip());
        }

        name: "AppWindows"
        subject: list
        signalName: "selectAppWindow"
    }
}
