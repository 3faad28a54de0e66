import QtQuick

// A rectangle whose corners are made round one by one.
Item {
    id: root

    property color color: "#80000000"
    property real radius: height / 3
    property bool drawTopLeftCorner: true
    property bool drawTopRightCorner: true
    property bool drawBottomRightCorner: true
    property bool drawBottomLeftCorner: true
    property color borderColor: "transparent"
    property int borderWidth: 0

    // Each of these asks for a new paint, as a new size does by itself. The border's width alone takes
    // effect with the next one.
    onColorChanged: canvas.requestPaint()
    onRadiusChanged: canvas.requestPaint()
    onDrawTopLeftCornerChanged: canvas.requestPaint()
    onDrawTopRightCornerChanged: canvas.requestPaint()
    onDrawBottomRightCornerChanged: canvas.requestPaint()
    onDrawBottomLeftCornerChanged: canvas.requestPaint()
    onBorderColorChanged: canvas.requestPaint()

    Canvas {
        id: canvas

        // Goes to the corner, round if it is drawn so; (nextX, nextY) is where the path goes on to.
        function lineToCorner(context: var, round: bool, x: real, y: real, nextX: real,
                              nextY: real) {
            if (round) {
                context.arcTo(x, y, nextX, nextY, Math.min(root.radius, width / 2, height / 2));
            } else {
                context.lineTo(x, y);
            }
        }

        anchors.fill: parent

        onPaint: {
            const context = getContext("2d");
            context.reset();
            context.beginPath();
            context.moveTo(0, height / 2);
            lineToCorner(context, root.drawTopLeftCorner, 0, 0, width / 2, 0);
            lineToCorner(context, root.drawTopRightCorner, width, 0, width, height / 2);
            lineToCorner(context, root.drawBottomRightCorner, width, height, width / 2, height);
            lineToCorner(context, root.drawBottomLeftCorner, 0, height, 0, height / 2);
            context.closePath();
            // Under the fill: of the border shows what a translucent fill lets through.
            if (root.borderWidth > 0) {
                context.lineWidth = root.borderWidth;
                context.strokeStyle = root.borderColor;
                context.stroke();
            }
            context.fillStyle = root.color;
            context.fill();
        }
    }
}
