import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

UiKitBase.Toast {
    id: toast

    readonly property var box: children[0]
    readonly property var content: children[1]
    readonly property var icon: content.children[0]
    readonly property var label: content.children[1]
    readonly property string tale: "The certificate was not added. ".repeat(8) + "END"

    KitTestCase {
        function test_standsAroundItsText_data() {
            return [
                { tag: "notice", message: "<b>Added</b>", margin: 14, shows: /^<b>Added<\/b>$/ },
                { tag: "error", message: "Lost", isError: true, margin: 14, shows: /^Lost$/ },
                { tag: "cut in its middle", message: toast.tale, margin: 14, shows: /.….*END$/ },
                { tag: "two lines", message: toast.tale, isError: true, lines: 2, margin: 8,
                  shows: /END$/ },
                { tag: "lines to spare", message: "Added", lines: 3, margin: 14, shows: /^Added$/ }
            ];
        }

        function test_standsAroundItsText(row) {
            toast.message = row.message;
            toast.isError = row.isError ?? false;
            toast.maxLinesCount = row.lines ?? 1;
            tryVerify(() => toast.content.width === toast.label.width + (row.isError ? 30 : 0));
            compare([toast.width, toast.height], [toast.content.width + 32,
                                                  toast.content.height + 2 * row.margin]);
            verify(toast.label.width <= 700 && row.shows.test(toast.label.text));
            compare([toast.icon.visible, toast.label.textFormat],
                    [row.isError ?? false, Text.PlainText]);
        }

        function test_colour() {
            compareLooks(() => [toast.box.color], [["backgroundSecondary", "#171f1d"]]);
            compare(toast.box.radius, 12);
        }

        name: "Toast"
    }
}
