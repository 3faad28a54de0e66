import QtQuick
import QtQuick.Window

// A tooltip in a window of its own, which may leave the window that it belongs to.
Window {
    id: window

    property alias text: label.text
    property bool transposed: false
    property alias state: tooltip.state
    readonly property int verticalTextMargin: 8
    readonly property int horizontalTextMargin: 16
    readonly property int xTooltipOffset: 16
    readonly property int verticalTriangleHeight: transposed ? 0 : tooltip.triangleHeight
    readonly property int horizontalTriangleWidth: transposed ? tooltip.triangleHeight : 0

    // Shows it beside the point, or above the point if it is not transposed. Under Wayland the point
    // counts from the transient parent.
    function showOnGlobalCoords(point: point) {
        if (transposed) {
            x = point.x + xTooltipOffset;
            y = point.y - height / 2;
        } else {
            x = point.x - width / 2;
            y = point.y - height;
        }
        show();
    }

    flags: Qt.ToolTip
    color: "transparent"
    opacity: 0
    width: Math.ceil(label.implicitWidth) + 2 * horizontalTextMargin + horizontalTriangleWidth
    height: Math.ceil(label.implicitHeight) + 2 * verticalTextMargin + verticalTriangleHeight

    TaskbarTooltip {
        id: tooltip

        anchors.fill: parent
        directionArrow: TaskbarTooltip.Left
        transposed: window.transposed
        radius: 12
        // The palette is that of the document which holds this window, if its root has one.
        color: typeof root !== "undefined" && root.pal ? root.pal.backgroundPrimary : "#050505"

        Accessible.name: window.text

        TextLabel {
            id: label

            x: window.horizontalTextMargin + window.horizontalTriangleWidth
            y: window.verticalTextMargin
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
    }
}
