import QtQuick
import QtQuick.Window

// A list of name servers on a few lines. What does not find room is told by a tooltip.
Item {
    id: root

    property var pal: paletteProvider.palette
    property var dnsServerList: []
    property int maxLineCount: 3
    property alias font: label.font
    readonly property bool needShowTooltip: servers.length > 3

    // None while the owner has no list yet.
    readonly property var servers: dnsServerList ?? []

    function shownText() : string {
        if (servers.length <= maxLineCount) {
            return servers.join("\n");
        }
        const lines = servers.slice(0, 3);
        if (maxLineCount >= 1 && maxLineCount <= lines.length) {
            lines[maxLineCount - 1] += " ...";
        }
        return lines.join("\n");
    }

    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: servers.join("\n")

    TextLabel {
        id: label

        anchors.fill: parent
        text: root.shownText()
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
            text: root.servers.join("\n")

            Component.onCompleted: {
                showOnGlobalCoords(root.mapToGlobal(root.width, root.height / 2));
                state = "Visible";
            }
        }
    }
}
