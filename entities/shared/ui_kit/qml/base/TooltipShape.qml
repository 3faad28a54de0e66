import QtQuick

// The speech bubble of the tooltips: a rounded rectangle with a triangle on one of its sides.
Canvas {
    id: root

    property color color: "#80000000"
    property int radius: 12
    property int triangleHeight: 6
    // Where the triangle points to along the upper or lower side; on the others it is in the middle.
    property int triangleVertex: width / 2
    property int side: Qt.TopEdge
    // What the rectangle leaves free across from the triangle.
    property int oppositeGap: 0
    property color borderColor: "transparent"
    property int borderWidth: 0

    // Draws the triangle on the edge at the given line, pointing away from the rectangle.
    function addTriangle(context: var) {
        const upOrDown = side === Qt.TopEdge || side === Qt.BottomEdge;
        const atStart = side === Qt.TopEdge || side === Qt.LeftEdge;
        const length = upOrDown ? height : width;
        const middle = upOrDown ? triangleVertex : height / 2;
        const base = atStart ? triangleHeight : length - triangleHeight;
        const point = (along, across) => upOrDown ? [along, across] : [across, along];
        // Clockwise like the rectangle, so that no seam shows where the two meet on half a pixel.
        const turn = side === Qt.TopEdge || side === Qt.RightEdge ? 1 : -1;
        context.moveTo(...point(middle - turn * triangleHeight, base));
        context.lineTo(...point(middle, atStart ? 0 : length));
        context.lineTo(...point(middle + turn * triangleHeight, base));
        context.closePath();
    }

    // A change of the side or of the border's width takes effect with the next paint, which a new
    // size asks for by itself.
    onColorChanged: requestPaint()
    onRadiusChanged: requestPaint()
    onTriangleHeightChanged: requestPaint()
    onTriangleVertexChanged: requestPaint()
    onBorderColorChanged: requestPaint()

    onPaint: {
        const gap = edge => edge === side ? triangleHeight : 0;
        const far = edge => edge === side ? oppositeGap : 0;
        const left = gap(Qt.LeftEdge) + far(Qt.RightEdge);
        const top = gap(Qt.TopEdge) + far(Qt.BottomEdge);
        const right = width - gap(Qt.RightEdge) - far(Qt.LeftEdge);
        const bottom = height - gap(Qt.BottomEdge) - far(Qt.TopEdge);
        const corner = Math.max(0, Math.min(radius, (right - left) / 2, (bottom - top) / 2));
        const context = getContext("2d");
        context.reset();
        context.beginPath();
        context.roundedRect(left, top, right - left, bottom - top, corner, corner);
        if (borderWidth > 0) {
            context.lineWidth = borderWidth;
            context.strokeStyle = borderColor;
            context.stroke();
        }
        // Filled in one go: a translucent colour shows no seam and no overlap.
        addTriangle(context);
        context.fillStyle = color;
        context.fill();
    }
}
