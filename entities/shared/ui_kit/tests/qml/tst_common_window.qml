import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

UiKitBase.CommonWindow {
    id: frame

    property var chosen: []
    readonly property var menuShape: children[1]
    readonly property var page: children[2]
    readonly property var list: menuShape.children[1].item.children[0].children[1]

    menuSource: UiKitBase.CommonMenu {
        menuModel: ListModel {
            ListElement { name: "Network"; componentUrlFromModel: "qrc:/network" }
            ListElement { name: "Display"; componentUrlFromModel: "qrc:/display" }
            ListElement { name: "About"; componentUrlFromModel: "qrc:/about" }
        }

        onItemActivated: (pageUrl, pageIndex) => frame.chosen.push([String(pageUrl), pageIndex])
    }
    pageSource: "data:text/plain,import QtQuick; Item { objectName: 'page' }"

    KitTestCase {
        function row(index) {
            return frame.list.itemAtIndex(index);
        }

        function initTestCase() {
            compare([frame.list.currentIndex, frame.chosen.length], [0, 0]);
        }

        function init() {
            mouseMove(frame, 1000, 500);
            tryVerify(() => row(2));
            frame.list.currentIndex = 0;
            frame.forceActiveFocus();
            frame.chosen = [];
        }

        function test_geometry() {
            compare([frame.width, frame.height, frame.children[0].radius], [1018, 580, 16]);
            compare([frame.menuShape.width, frame.menuShape.radius, frame.page.x, frame.page.width],
                    [318, 16, 318, 700]);
            compare([frame.menuShape.drawTopLeftCorner, frame.menuShape.drawTopRightCorner],
                    [true, false]);
        }

        function test_loadsThePageWhileItIsVisible() {
            tryVerify(() => frame.page.children[0].item.objectName === "page");
            frame.isVisible = false;
            verify(!frame.page.children[0].item);
            frame.isVisible = true;
            tryVerify(() => frame.page.children[0].item);
        }

        function test_closes() {
            keyClick(Qt.Key_Escape);
            mouseClick(frame, 1018 - 28, 28);
            compare(spy.count, 2);
        }

        function test_choosesAPage_data() {
            return [
                { tag: "click", act: () => mouseClick(row(1)) },
                { tag: "frame's key", key: Qt.Key_PageDown, modifier: Qt.AltModifier },
                { tag: "menu's key", at: 0, key: Qt.Key_PageDown, modifier: Qt.AltModifier },
                ...clickKeys().map(row => Object.assign(row, { at: 1 }))
            ];
        }

        function test_choosesAPage(data) {
            row(data.at ?? 0).forceActiveFocus(Qt.TabFocusReason);
            if (data.at === undefined) {
                frame.forceActiveFocus();
            }
            data.key ? keyClick(data.key, data.modifier ?? Qt.NoModifier) : data.act();
            compare(frame.chosen, [["qrc:/display", 1]]);
            keyClick(Qt.Key_PageUp);
            compare(frame.chosen.length, 1);
            keyClick(Qt.Key_PageUp, Qt.AltModifier);
            compare(frame.chosen[1], ["qrc:/network", 0]);
        }

        function test_rowsShowWhichIsCurrentAndUnderTheMouse() {
            mouseMove(row(1), 20, 20);
            tryVerify(() => row(1).hovered);
            compareLooks(() => [0, 1, 2].map(index => row(index).background.color),
                         [["contentBackground", "#171f1d"], ["backgroundPrimary", "#131414"],
                          "#00000000"]);
            compare([row(0).height, row(1).y], [52, 56]);
        }

        name: "CommonWindow"
        subject: frame
        signalName: "closeActivated"
    }
}
