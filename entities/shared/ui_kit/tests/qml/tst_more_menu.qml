import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    width: 300
    height: 300

    UiKitBase.MoreMenu {
        id: menu

        readonly property var button: children[0]
        readonly property var popup: button.popup

        x: 100
        y: 40
        menuItemsModel: ListModel {}
    }

    KitTestCase {
        function fill(count: int) {
            menu.menuItemsModel.clear();
            for (let i = 0; i < count; ++i) {
                menu.menuItemsModel.append({ menuItemText: `Action ${i}` });
            }
            spy.clear();
        }

        function test_opensBesideItselfAsHighAsItsRows_data() {
            return [{ tag: "0", height: 1 }, { tag: "1", height: 48 }, { tag: "3", height: 152 }];
        }

        function test_opensBesideItselfAsHighAsItsRows(row) {
            fill(Number(row.tag));
            mouseClick(menu);
            const at = menu.mapToGlobal(10, 10);
            compare([menu.getPopupPosition(), menu.popup.visible], [at, true]);
            compare([menu.popup.x, menu.popup.y, menu.popup.width, menu.popup.height],
                    [at.x, at.y, 150, row.height]);
            compare(menu.popup.transientParent, menu.Window.window);
            keyClick(Qt.Key_Escape);
            verify(!menu.popup.visible);
        }

        function test_aClickChooses() {
            fill(3);
            mouseClick(menu);
            mouseClick(menu);
            verify(!menu.popup.visible);
            mouseClick(menu);
            const list = menu.popup.contentItem.children[1];
            tryVerify(() => list.itemAtIndex(2));
            const shape = list.itemAtIndex(2).children[0];
            mouseMove(shape, 75, 20);
            tryVerify(() => Qt.colorEqual(shape.color, "#1c1926"));
            compare([shape.width, shape.height, shape.radius], [142, 40, 12]);
            mouseClick(shape);
            compare([spy.count, spy.signalArguments[0][0], menu.popup.visible],
                    [1, 2, false]);
        }

        function test_keysOpenAndChooseAndTheFocusTakesItAway() {
            fill(3);
            menu.button.forceActiveFocus(Qt.TabFocusReason);
            for (const key of [Qt.Key_Enter, Qt.Key_Return, Qt.Key_Space]) {
                [key, Qt.Key_Down, Qt.Key_Down, key].forEach(each => keyClick(each));
                verify(!menu.popup.visible);
            }
            compare(spy.signalArguments.map(row => row[0]), [1, 1, 1]);
            keyClick(Qt.Key_Enter);
            verify(menu.popup.visible);
            root.forceActiveFocus();
            verify(!menu.popup.visible);
        }

        name: "MoreMenu"
        subject: menu
        signalName: "clicked"
    }
}
