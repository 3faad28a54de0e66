import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    width: 500
    height: 500

    UiKitBase.DatePicker {
        id: picker

        readonly property var column: contentItem.children[0].children[0]
        readonly property var grid: column.children[2]
        readonly property string shown: `${grid.year}-${grid.month + 1}`
    }

    KitTestCase {
        function dayOf(text: string) : date {
            const [year, month, day] = text.split("-").map(Number);
            return new Date(year, month - 1, day);
        }

        function textOf(date: date) : string {
            return `${date.getFullYear()}-${date.getMonth() + 1}-${date.getDate()}`;
        }

        function cells(): var {
            return Array.from(picker.grid.contentItem.children).filter(cell => cell.model);
        }

        function markedDays() : var {
            return cells().filter(cell => cell.marked && cell.shown).map(cell => cell.model.day);
        }

        function openAt(text: string) {
            picker.currentDate = dayOf(text);
            picker.open();
            tryCompare(picker, "opened", true);
            picker.selectedDate = picker.currentDate;
        }

        function cleanup() {
            picker.close();
            tryCompare(picker, "visible", false);
        }

        function test_steps_data() {
            const row = (from, key, to, shown) =>
                ({ tag: `${from} to ${to ?? "nowhere"}`, from: from, key: key, to: to,
                   shown: shown ?? to.replace(/-\d+$/, "") });
            return [
                row("2026-11-21", Qt.Key_Right, "2026-11-22"),
                row("2026-11-30", Qt.Key_Right, "2026-12-1"),
                row("2028-2-28", Qt.Key_Right, "2028-2-29"),
                row("2027-1-1", Qt.Key_Left, "2026-12-31"),
                row("2026-1-31", Qt.Key_Tab, "2026-2-28"),
                row("2026-12-5", Qt.Key_Tab, "2027-1-5"),
                row("2026-3-31", Qt.Key_Backtab, "2026-2-28"),
                row("2026-1-5", Qt.Key_Backtab, "2025-12-5"),
                row("2090-12-5", Qt.Key_Tab, undefined, "2090-1"),
                row("2090-12-31", Qt.Key_Right, undefined, "2090-1"),
                row("2000-1-5", Qt.Key_Backtab, undefined, "2000-12"),
                row("2000-1-1", Qt.Key_Left, undefined, "2000-12")
            ];
        }

        // A step over the limit turns the month, but has no day to select.
        function test_steps(row) {
            openAt(row.from);
            if (!row.to) {
                ignoreWarning(/Cannot assign \[undefined\] to QDateTime/);
            }
            keyClick(row.key);
            compare([textOf(picker.selectedDate), picker.shown], [row.to ?? row.from, row.shown]);
            compare(markedDays(), row.to ? [dayOf(row.to).getDate()] : []);
        }

        function test_enterTakesTheDay() {
            for (const key of [Qt.Key_Enter, Qt.Key_Return]) {
                openAt("2026-11-21");
                [Qt.Key_Right, key].forEach(each => keyClick(each));
                compare(textOf(picker.currentDate), "2026-11-22");
                tryCompare(picker, "visible", false);
            }
        }

        function test_aClickTakesADayOfTheShownMonth() {
            openAt("2026-11-21");
            mouseClick(cells().find(cell => cell.shown && cell.model.day === 5));
            compare(textOf(picker.currentDate), "2026-11-5");
            mouseClick(cells().find(cell => !cell.shown));
            compare(textOf(picker.currentDate), "2026-11-5");
        }

        function test_arrowsStepTheMonth() {
            openAt("2026-11-21");
            const [left, , month, year, , right] = Array.from(picker.column.children[0].children);
            mouseClick(right);
            mouseClick(right);
            picker.locale = Qt.locale("ru_RU");
            compare([picker.shown, month.text, year.text], ["2027-1", "Январь", "2027"]);
            mouseClick(left);
            compare(picker.shown, "2026-12");
            picker.close();
            tryCompare(picker, "visible", false);
            compare(picker.shown, "2026-11");
        }

        function test_looks() {
            openAt("2026-11-18");
            paletteProvider.palette = null;
            const cell = cells().find(candidate => candidate.marked && candidate.shown);
            const mark = cell.children[0].item;
            compare([cell.width, cell.height, mark.width, mark.height, mark.radius],
                    [36, 24, 44, 44, 4]);
            compare([String(mark.color), String(picker.contentItem.children[0].color)],
                    ["#8c8cff", "#131414"]);
            picker.currentDate = new Date();
            const today = cells().find(candidate => candidate.model.today);
            verify(!today || Qt.colorEqual(today.color, "#1ca88c"));
        }

        name: "DatePicker"
    }
}
