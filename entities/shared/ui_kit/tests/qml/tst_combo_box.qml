import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var names: ["Alpha", "Beta", "Gamma", "Delta", "Eta", "Theta", "Z eta"]
    readonly property var search: ({
        GetDescriptionByRow: row => root.names[row],
        GetIdByDescription: text => root.names.indexOf(text)
    })

    width: 900
    height: 600

    ListModel {
        id: found

        function rowCount(): int {
            return count;
        }

        function filter(part: string) {
            clear();
            root.names.filter(name => name.includes(part)).forEach(name => append({ name: name }));
        }
    }

    UiKitBase.ComboBox {
        id: plain

        readonly property var box: Array.from(children).find(child => "popup" in child)

        menuModel: root.names
    }

    UiKitBase.ComboBox {
        id: searched

        readonly property var box: Array.from(children).find(child => "popup" in child)

        x: 450
        textRole: "name"
        menuModel: found
        searchModel: root.search

        onTextChanged: found.filter(text)
    }

    KitTestCase {
        function init() {
            paletteProvider.palette = darkPalette;
            found.filter("");
            plain.box.currentIndex = 0;
            searched.currentIndex = 2;
            mouseMove(root, 890, 590);
        }

        function open(combo: var) {
            spy.target = combo;
            spy.clear();
            combo.box.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Return);
            tryCompare(combo.box.popup, "opened", true);
        }

        function test_aRowIsChosen_data() {
            return [
                { tag: "keys",
                  choose: () => press(Qt.Key_Down, Qt.Key_Enter) },
                { tag: "mouse", choose: () => mouseClick(plain, 50, 53 + 56 + 28) }
            ];
        }

        function test_aRowIsChosen(row) {
            open(plain);
            compare([plain.box.popup.y, plain.editModeOn], [53, false]);
            row.choose();
            tryCompare(plain.box.popup, "visible", false);
            compare([spy.count, spy.signalArguments[0][0]], [1, 1]);
            // The owner says what is current, and may have bound it.
            compare([plain.box.displayText, plain.currentIndex], ["Beta", 0]);
        }

        function test_theListIsSearched_data() {
            return [
                { tag: "typed and known", keys: ["D", "e", "l", "t", "a"], index: 3, height: 52 },
                { tag: "typed in part", keys: ["e", "t"], text: "et", index: 2, height: 3 * 52 },
                { tag: "typed with a blank", keys: ["Z", Qt.Key_Space, "e"], text: "Z e", index: 2,
                  height: 52 },
                { tag: "nothing typed", keys: [], text: "", index: 2, height: 340 },
                { tag: "chosen", keys: ["e", "t", Qt.Key_Down, Qt.Key_Return],
                  text: "et", index: 5, height: 3 * 52 }
            ];
        }

        function test_theListIsSearched(row) {
            open(searched);
            compare([searched.editModeOn, searched.oldIndex, searched.text], [true, 2, ""]);
            press(...row.keys);
            compare([searched.text, searched.listHeight], [row.text ?? root.names[row.index],
                                                           row.height]);
            keyClick(Qt.Key_Escape);
            tryCompare(searched.box.popup, "visible", false);
            compare([searched.editModeOn, searched.currentIndex, searched.box.displayText],
                    [false, row.index, root.names[row.index]]);
            compare(spy.count, row.index === 2 ? 0 : 1);
            verify(searched.box.activeFocus);
        }

        function test_theRowStaysWhenTheModelChanges() {
            plain.currentIndex = 1;
            plain.menuModel = ["One", "Two"];
            compare(plain.box.displayText, "Two");
            plain.menuModel = [];
            plain.menuModel = root.names;
            compare(plain.box.displayText, "Beta");
            plain.currentIndex = 0;
            found.clear();
            found.filter("");
            compare([searched.box.currentIndex, searched.box.displayText], [2, "Gamma"]);
        }

        function test_leavingTheBoxClosesIt() {
            open(searched);
            keyClick(Qt.Key_Backtab);
            tryCompare(searched.box.popup, "visible", false);
            compare([searched.editModeOn, searched.box.displayText], [false, "Gamma"]);
        }

        function test_looks_data() {
            return [
                { tag: "plain", border: ["contentBorder", "#28ffffff"] },
                { tag: "focus", focus: true, border: ["purplePrimary", "#8c8cff"] },
                { tag: "blocked", blocked: true, border: ["contentDisabled", "#14ffffff"],
                  fill: ["contentBackground", "#171f1d"] }
            ];
        }

        function test_looks(row) {
            plain.isBlocked = row.blocked ?? false;
            root.forceActiveFocus();
            if (row.focus) {
                plain.box.forceActiveFocus();
            }
            const look = plain.box.background;
            compareLooks(() => [look.border.color, look.color],
                         [row.border, row.fill ?? ["backgroundPrimary", "#050505"]]);
            compare([plain.width, plain.height, look.radius, plain.box.enabled],
                    [405, 52, 12, !row.blocked]);
            plain.isBlocked = false;
        }

        name: "ComboBox"
        signalName: "indexChanged"
    }
}
