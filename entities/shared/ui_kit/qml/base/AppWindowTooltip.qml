import QtQuick

// The tooltip of a window's title, wrapped where the title is long.
AppTooltip {
    id: root

    readonly property int uxMaxTextWidth: 290
    readonly property bool fits: unwrapped.width < uxMaxTextWidth

    directionArrow: TaskbarTooltip.Left
    textWidth: fits ? unwrapped.width : wrapped.contentWidth
    textHeight: fits ? unwrapped.height : wrapped.contentHeight
    wrapMode: fits ? Text.NoWrap : Text.Wrap

    TextLabel {
        id: unwrapped

        visible: false
        text: root.text
        font.pixelSize: 14
        wrapMode: Text.NoWrap
    }

    TextLabel {
        id: wrapped

        visible: false
        width: root.uxMaxTextWidth
        text: root.text
        font.pixelSize: 14
        wrapMode: Text.Wrap
    }
}
