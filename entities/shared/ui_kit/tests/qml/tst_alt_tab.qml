import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

UiKitBase.AltTab {
    id: strip

    readonly property var panel: children[0]
    readonly property var list: panel.children[0]

    width: 1000
    height: 500
    appsModel: ListModel {}

    SignalSpy {
        id: leavings

        target: strip
        signalName: "hideAltTab"
    }

    KitTestCase {
        function fill(count: int) {
            strip.appsModel.clear();
            for (let i = 0; i < count; ++i) {
                strip.appsModel.append({ windowTitle: `Window ${i}`, windowId: `id${i}`,
                                         path: "qrc:/ui_kit/images/tvo_logo" });
            }
            strip.list.forceLayout();
            spy.clear();
        }

        function test_panel_data() {
            return [{ tag: "0", width: 1000, bounds: Flickable.StopAtBounds },
                    { tag: "1", width: 370, bounds: Flickable.StopAtBounds },
                    { tag: "2", width: 725, bounds: Flickable.DragAndOvershootBounds },
                    { tag: "5", width: 1000, bounds: Flickable.DragAndOvershootBounds }];
        }

        function test_panel(row) {
            fill(Number(row.tag));
            compare([strip.panel.y, strip.panel.width, strip.panel.height, strip.panel.radius,
                     strip.list.boundsBehavior], [255, row.width, 245, 16, row.bounds]);
        }

        function test_pictureComesFromTheModelOrTheOwner() {
            fill(1);
            const image = strip.list.itemAtIndex(0).children[0].children[1];
            compare([String(image.source), image.y, image.height, image.cache],
                    ["qrc:/ui_kit/images/tvo_logo", 22, 191, false]);
            const byDefault = strip.getSourceFromModel;
            strip.getSourceFromModel = model => model.path.replace("tvo_logo", "calendar");
            compare(String(image.source), "qrc:/ui_kit/images/calendar");
            strip.getSourceFromModel = byDefault;
        }

        function test_choosesAWindow() {
            fill(2);
            mouseClick(strip.list.itemAtIndex(0));
            strip.list.forceActiveFocus(Qt.TabFocusReason);
            press(Qt.Key_Right, Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space);
            compare(spy.signalArguments.map(row => row[0]), ["id0", "id1", "id1", "id1"]);
        }

        function test_goesWhenTheMouseLeaves() {
            fill(2);
            mouseMove(strip, 500, 400);
            leavings.clear();
            mouseMove(strip, 500, 100);
            tryCompare(leavings, "count", 1);
        }

        name: "AltTab"
        subject: strip
        signalName: "selectApp"
    }
}
