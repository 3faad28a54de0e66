import QtQuick
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase

// A control of the taskbar: an image, or what its user puts there, and a tooltip over it.
UiKitBase.IconButton {
    id: root

    property string hint
    property bool shown: true

    // The tooltip stands over the middle of the control, but not beyond the edge of the window.
    function placeTooltip() {
        const left = mapToItem(null, 0, 0).x;
        const room = Window.width - 8 - tooltip.width;
        tooltip.x = Math.max(8, Math.min(left + (width - tooltip.width) / 2, room)) - left;
    }

    radius: 12
    implicitWidth: Math.max(40, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: 40
    hoverEnabled: true
    visible: shown

    background: Rectangle {
        radius: root.radius
        color: root.hovered || root.down ? paletteProvider.palette.contentBackground : "transparent"
    }

    onHoveredChanged: placeTooltip()
    onVisualFocusChanged: placeTooltip()

    UiKitBase.AppTooltip {
        id: tooltip

        y: -height - 8
        text: root.hint
        triangleVertex: root.width / 2 - x
        bottomTextMargin: 8 + triangleHeight
        state: (root.hovered || root.visualFocus) && !root.down ? "Visible" : "Invisible"
    }
}
