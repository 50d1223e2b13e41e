import QtQuick 2.12
import "../settings"
import "../style"

// The velocity for the force of a stroke: nine points that a finger can move.
Rectangle {
    id: chart
    property TriggerSettings settings
    readonly property var points: settings.points
    onPointsChanged: curve.requestPaint()

    color: Theme.background
    border.color: Theme.line
    radius: 6

    Repeater {
        model: 3
        Item {
            Rectangle {
                x: (index + 1) * chart.width / 4
                width: 1
                height: chart.height
                color: Theme.line
            }
            Rectangle {
                y: (index + 1) * chart.height / 4
                width: chart.width
                height: 1
                color: Theme.line
            }
        }
    }
    Canvas {
        id: curve
        anchors.fill: parent
        anchors.margins: 8
        onPaint: {
            var context = getContext("2d");
            var points = chart.points;
            context.reset();
            context.strokeStyle = Theme.accent;
            context.lineWidth = 2.5;
            context.lineJoin = "round";
            context.beginPath();
            for (var i = 0; i < points.length; ++i) {
                var x = i / (points.length - 1) * width, y = (1 - points[i] / 127) * height;
                if (i === 0)
                    context.moveTo(x, y);
                else
                    context.lineTo(x, y);
            }
            context.stroke();
            context.fillStyle = Theme.accent;
            for (i = 0; i < points.length; ++i) {
                context.beginPath();
                context.arc(i / (points.length - 1) * width, (1 - points[i] / 127) * height, 4, 0, 2 * Math.PI, false);
                context.fill();
            }
        }
        MouseArea {
            objectName: "triggerCurve"
            anchors.fill: parent
            preventStealing: true
            property bool drawn: false
            onPressed: drawn = false
            onPositionChanged: {
                drawn = true;
                var last = chart.points.length - 1;
                var index = Math.min(last, Math.max(0, Math.round(mouse.x / width * last)));
                chart.settings.draw(index, (1 - mouse.y / height) * 127);
            }
            onReleased: {
                if (drawn)
                    chart.settings.finishDrawing();
            }
        }
    }
}
