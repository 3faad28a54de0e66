import QtQuick

// A taskbar tooltip that says one text, as large as the text and its margins.
TaskbarTooltip {
    id: root

    property alias text: label.text
    property alias wrapMode: label.wrapMode
    property real textWidth: label.implicitWidth
    property real textHeight: label.implicitHeight
    property int bottomTextMargin: 8
    readonly property int uxBorderRadius: 12
    readonly property color uxBackgroundColor: "#242424"
    readonly property color uxTextColor: "#FFFFFFFA"
    readonly property real fullWidth: textWidth + label.anchors.leftMargin
                                      + label.anchors.rightMargin
    readonly property real fullHeight: textHeight + label.anchors.topMargin + bottomTextMargin

    width: fullWidth
    height: fullHeight
    visible: text !== ""
    color: uxBackgroundColor
    radius: uxBorderRadius

    Accessible.name: text

    TextLabel {
        id: label

        anchors.fill: parent
        anchors.topMargin: 8
        anchors.bottomMargin: root.bottomTextMargin
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        color: root.uxTextColor
        font.pixelSize: 14
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }
}
