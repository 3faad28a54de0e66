import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// A calendar of one month. The arrow keys walk over its days, Tab over the months; Enter takes the
// day.
Popup {
    id: root

    property var pal: paletteProvider.palette
    readonly property int buttonDimension: 24
    readonly property int minYear: 2000
    readonly property int maxYear: 2090
    property date currentDate: new Date()
    // The day under the keyboard's cursor.
    property date selectedDate

    function showCurrentMonth() {
        grid.month = currentDate.getMonth();
        grid.year = currentDate.getFullYear();
    }

    // The selected day's number in the shown month, or the last day of that month.
    function selectedDayOfMonth() : date {
        const days = new Date(grid.year, grid.month + 1, 0).getDate();
        return new Date(grid.year, grid.month, Math.min(selectedDate.getDate(), days));
    }

    // The steps of a month move what is shown and return the date to select: none at the limits,
    // where the month has turned already and the year stays.
    function prevMonth() : var {
        if (grid.month > 0) {
            --grid.month;
        } else {
            grid.month = 11;
            if (grid.year - 1 < 2000) {
                return undefined;
            }
            --grid.year;
        }
        return selectedDayOfMonth();
    }

    function nextMonth() : var {
        if (grid.month < 11) {
            ++grid.month;
        } else {
            grid.month = 0;
            if (grid.year + 1 > 2090) {
                return undefined;
            }
            ++grid.year;
        }
        return selectedDayOfMonth();
    }

    function nextDay() : var {
        const day = selectedDate.getDate();
        const date = new Date(selectedDate.getFullYear(), selectedDate.getMonth(), day + 1);
        if (day < 28 || date.getMonth() === selectedDate.getMonth()) {
            return date;
        }
        const next = nextMonth();
        next?.setDate(1);
        return next;
    }

    function prevDay() : var {
        const date = new Date(selectedDate.getFullYear(), selectedDate.getMonth(),
                              selectedDate.getDate() - 1);
        if (date.getMonth() === selectedDate.getMonth()) {
            return date;
        }
        const previous = prevMonth();
        previous?.setDate(date.getDate());
        return previous;
    }

    padding: 0
    focus: true
    background: null

    Rectangle {
        anchors.fill: parent
        implicitWidth: column.implicitWidth + 2 * column.anchors.margins
        implicitHeight: column.implicitHeight + 2 * column.anchors.margins
        radius: 12
        color: root.pal ? root.pal.backgroundPrimary : "#131414"
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: month.text + " " + year.text

        Keys.onEnterPressed: {
            root.currentDate = root.selectedDate;
            root.close();
        }
        Keys.onReturnPressed: {
            root.currentDate = root.selectedDate;
            root.close();
        }
        Keys.onRightPressed: root.selectedDate = root.nextDay()
        Keys.onLeftPressed: root.selectedDate = root.prevDay()
        Keys.onTabPressed: root.selectedDate = root.nextMonth()
        Keys.onBacktabPressed: root.selectedDate = root.prevMonth()

        ColumnLayout {
            id: column

            anchors.fill: parent
            anchors.margins: 16
            spacing: 16

            RowLayout {
                Layout.leftMargin: 8
                Layout.rightMargin: 8
                spacing: 0

                StepButton {
                    implicitWidth: root.buttonDimension
                    implicitHeight: root.buttonDimension
                    icon.source: "qrc:/ui_kit/images/" + (mirrored ? "right" : "left")
                    text: qsTr("Previous month")

                    onClicked: root.selectedDate = root.prevMonth()
                }

                Item {
                    Layout.fillWidth: true
                }

                TextLabel {
                    id: month

                    text: {
                        const name = root.locale.standaloneMonthName(grid.month);
                        return name.charAt(0).toUpperCase() + name.slice(1);
                    }
                    font.weight: Font.DemiBold
                }

                TextLabel {
                    id: year

                    Layout.leftMargin: 57
                    text: grid.year
                    font.weight: Font.DemiBold
                }

                Item {
                    Layout.fillWidth: true
                }

                StepButton {
                    implicitWidth: root.buttonDimension
                    implicitHeight: root.buttonDimension
                    icon.source: "qrc:/ui_kit/images/" + (mirrored ? "left" : "right")
                    text: qsTr("Next month")

                    onClicked: root.selectedDate = root.nextMonth()
                }
            }

            DayOfWeekRow {
                Layout.fillWidth: true
                spacing: 20
                padding: 0

                delegate: Item {
                    required property var model

                    implicitWidth: 36
                    implicitHeight: label.implicitHeight

                    TextLabel {
                        id: label

                        anchors.centerIn: parent
                        width: 36
                        horizontalAlignment: Text.AlignHCenter
                        text: parent.model.shortName
                        color: root.pal ? root.pal.contentSecondary : "#8FFFFFFF"
                        font.pixelSize: 14
                    }
                }
            }

            MonthGrid {
                id: grid

                spacing: 24
                padding: 0
                font.family: "Vantelore Sans Text"
                font.pixelSize: 16
                activeFocusOnTab: false

                delegate: Text {
                    id: cell

                    required property var model
                    readonly property bool shown: model.month === grid.month
                    // Differs between any two days.
                    readonly property int number: (model.year * 12 + model.month) * 31 + model.day
                    property bool marked: false

                    function choose() {
                        if (shown) {
                            root.currentDate = new Date(model.year, model.month, model.day);
                        }
                    }

                    width: 36
                    height: 24
                    opacity: shown ? 1 : 0
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    font: grid.font
                    text: model.day
                    textFormat: Text.PlainText
                    color: {
                        if (model.today) {
                            return root.pal ? root.pal.purplePrimary : "#1CA88C";
                        }
                        return root.pal ? root.pal.contentPrimary : "white";
                    }

                    Accessible.role: Accessible.Cell
                    Accessible.name: text + " " + month.text + " " + year.text
                    Accessible.ignored: !shown
                    Accessible.selected: marked
                    Accessible.onPressAction: choose()

                    onNumberChanged: marked = false

                    Loader {
                        z: -1
                        anchors.centerIn: parent
                        active: cell.marked
                        sourceComponent: Rectangle {
                            width: 44
                            height: 44
                            radius: 4
                            color: root.pal ? root.pal.purplePrimary : "#8C8CFF"
                        }
                    }
                }

                MouseArea {
                    anchors.fill: parent

                    onClicked: mouse => parent.contentItem.childAt(mouse.x, mouse.y)?.choose()
                }
            }
        }
    }

    onSelectedDateChanged: {
        const day = selectedDate.getDate();
        for (const cell of Array.from(grid.contentItem.children)) {
            if ("marked" in cell) {
                cell.marked = cell.model.day === day;
            }
        }
    }
    onVisibleChanged: showCurrentMonth()

    Component.onCompleted: {
        showCurrentMonth();
        selectedDate = currentDate;
    }

    component StepButton: IconButton {
        icon.width: 7
        icon.height: 12
        icon.color: "white"
        // The keyboard has Tab for the same step.
        focusPolicy: Qt.NoFocus
    }
}
