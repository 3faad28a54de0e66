import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    width: 200
    height: 200

    UiKitBase.DnsMultilineText {
        id: servers

        readonly property string text: children[0].text
        readonly property var tooltip: children[2].item
    }

    KitTestCase {
        function init() {
            mouseMove(root, 190, 190);
        }

        function test_lines_data() {
            return [
                { tag: "none", list: [], text: "" },
                { tag: "no list yet", list: null, text: "" },
                { tag: "as many as there is room", list: ["a", "b", "c"], text: "a\nb\nc" },
                { tag: "one more", list: ["a", "b", "c", "d"], text: "a\nb\nc ...", needed: true },
                { tag: "three on two lines", list: ["a", "b", "c"], lines: 2, text: "a\nb ...\nc" },
                { tag: "four on four lines", list: ["a", "b", "c", "d"], lines: 4,
                  text: "a\nb\nc\nd", needed: true },
                { tag: "six on five lines", list: ["a", "b", "c", "d", "e", "f"], lines: 5,
                  text: "a\nb\nc", needed: true }
            ];
        }

        function test_lines(row) {
            servers.maxLineCount = row.lines ?? 3;
            servers.dnsServerList = row.list;
            compare([servers.text, servers.needShowTooltip], [row.text, row.needed ?? false]);
        }

        function test_tooltipTellsAll() {
            servers.maxLineCount = 3;
            servers.dnsServerList = ["10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4"];
            mouseMove(servers, 5, 5);
            tryVerify(() => servers.tooltip && servers.tooltip.visible);
            const at = servers.mapToGlobal(servers.width, servers.height / 2);
            compare([servers.tooltip.text, servers.tooltip.transientParent],
                    ["10.0.0.1\n10.0.0.2\n10.0.0.3\n10.0.0.4", servers.Window.window]);
            compare([servers.tooltip.x, servers.tooltip.y],
                    [at.x + 16, at.y - servers.tooltip.height / 2].map(Math.trunc));
            mouseMove(root, 190, 190);
            tryVerify(() => !servers.tooltip);
        }

        name: "DnsMultilineText"
    }
}
