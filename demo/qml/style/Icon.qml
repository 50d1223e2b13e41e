import QtQuick 2.12

// A line drawing on a 24 by 24 grid, given as an SVG path.
Canvas {
    id: icon
    property string path
    property color color: "white"
    property real strokeWidth: 1.7

    implicitWidth: 28
    implicitHeight: 28
    onPathChanged: requestPaint()
    onColorChanged: requestPaint()
    onPaint: {
        var context = getContext("2d");
        context.reset();
        context.scale(width / 24, height / 24);
        context.lineWidth = strokeWidth;
        context.lineCap = "round";
        context.lineJoin = "round";
        context.strokeStyle = color;
        context.path = path;
        context.stroke();
    }
}
