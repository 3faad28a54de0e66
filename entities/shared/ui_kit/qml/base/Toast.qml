import QtQuick

// A short notice, of a failure if it is told so.
Item {
    id: root

    property var pal: paletteProvider.palette
    property bool isError: false
    property alias message: metrics.text
    property int maxTextWidth: 700
    property int maxLinesCount: 1

    implicitWidth: content.width + 2 * 16
    implicitHeight: content.height + 2 * (label.lineCount > 1 ? 8 : 14)

    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: root.pal ? root.pal.backgroundSecondary : "#171F1D"
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: 10

        SharpImage {
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            height: 20
            visible: root.isError
            source: "qrc:/ui_kit/images/error_icon"
        }

        // One line is cut in its middle, since file names and addresses tell most at their ends.
        // Several lines are cut at the end of the last.
        TextLabel {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.maxTextWidth)
            text: root.maxLinesCount > 1 ? root.message : metrics.elidedText
            font.pixelSize: 14
            elide: Text.ElideRight
            maximumLineCount: root.maxLinesCount
            Accessible.ignored: true
        }
    }

    TextMetrics {
        id: metrics

        font: label.font
        elide: Text.ElideMiddle
        elideWidth: root.maxTextWidth
    }
}
