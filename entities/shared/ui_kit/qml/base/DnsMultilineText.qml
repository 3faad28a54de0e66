import QtQuick
import QtQuick.Window

// A list of name servers on a few lines. What does not find room is told by a tooltip.
Item {
    id: root

    property var pal: paletteProvider.palette
    property var dnsServerList: []
    property int maxLineCount: 3
    property alias font: label.font
    readonly property bool needShowTooltip: dnsServerList.length > 3

    function shownText() : string {
        if (dnsServerList.length <= maxLineCount) {
            return dnsServerList.join("\n");
        }
        const lines = dnsServerList.slice(0, 3);
        if (maxLineCount >= 1 && maxLineCount <= lines.length) {
            lines[maxLineCount - 1] += " ...";
        }
        return lines.join("\n");
    }

    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: dnsServerList.join("\n")

    TextLabel {
        id: label

        anchors.fill: parent
        text: root.shownText()
        textFormat: Text.PlainText
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }

    MouseArea {
        id: mouseArea

        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        hoverEnabled: true
    }

    Loader {
        active: mouseArea.containsMouse && root.needShowTooltip
        asynchronous: true
        sourceComponent: TooltipTextWindow {
            transientParent: root.Window.window
            opacity: 1
            transposed: true
            state: "Invisible"
            text: root.dnsServerList.join("\n")

            Component.onCompleted: {
                showOnGlobalCoords(root.mapToGlobal(root.width, root.height / 2));
                state = "Visible";
            }
        }
    }
}
