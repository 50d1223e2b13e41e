import QtQuick 2.12
import "../settings"
import "../style"

// A rotary knob for one parameter. A vertical drag turns it, a double tap resets it to the neutral value.
Item {
    id: knob
    property Parameter parameter
    property string label: parameter ? parameter.label : ""
    property int dialSize: 60
    readonly property real position: parameter ? parameter.position : 0
    readonly property real neutral: parameter && parameter.bipolar ? parameter.neutralPosition : 0

    objectName: parameter ? parameter.method : ""
    implicitWidth: 92
    implicitHeight: name.height + dialSize + figure.height + 6
    onPositionChanged: dial.requestPaint()
    onNeutralChanged: dial.requestPaint()

    Caption {
        id: name
        width: parent.width
        text: knob.label
        color: Theme.text
    }
    Canvas {
        id: dial
        anchors { top: name.bottom; topMargin: 5; horizontalCenter: parent.horizontalCenter }
        width: knob.dialSize
        height: knob.dialSize
        property bool held: area.pressed
        onHeldChanged: requestPaint()

        function angle(position) {
            return (0.75 + 1.5 * position) * Math.PI;
        }
        onPaint: {
            var context = getContext("2d");
            var middle = width / 2, rim = middle - 4;
            context.reset();
            context.lineCap = "round";
            context.lineWidth = 5;
            context.strokeStyle = Theme.line;
            context.beginPath();
            context.arc(middle, middle, rim, angle(0), angle(1), false);
            context.stroke();

            var from = Math.min(knob.position, knob.neutral), to = Math.max(knob.position, knob.neutral);
            if (to - from > 0.004) {
                context.strokeStyle = Theme.accent;
                context.beginPath();
                context.arc(middle, middle, rim, angle(from), angle(to), false);
                context.stroke();
            }
            context.fillStyle = held ? Theme.pressed : Theme.raised;
            context.beginPath();
            context.arc(middle, middle, rim - 8, 0, 2 * Math.PI, false);
            context.fill();

            var heading = angle(knob.position);
            context.strokeStyle = Theme.text;
            context.lineWidth = 3;
            context.beginPath();
            context.moveTo(middle + (rim - 20) * Math.cos(heading), middle + (rim - 20) * Math.sin(heading));
            context.lineTo(middle + (rim - 12) * Math.cos(heading), middle + (rim - 12) * Math.sin(heading));
            context.stroke();
        }
    }
    Text {
        id: figure
        anchors { top: dial.bottom; topMargin: -2 }
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: knob.parameter ? knob.parameter.text : ""
        color: area.pressed ? Theme.accent : Theme.dim
        font.pixelSize: Theme.caption
    }
    MouseArea {
        id: area
        anchors.fill: parent
        preventStealing: true
        // The distance for the whole range, in pixels.
        readonly property real fullTurn: 220
        property real startY
        property real startPosition
        onPressed: {
            startY = mouse.y;
            startPosition = knob.position;
        }
        onPositionChanged: knob.parameter.setPosition(startPosition - (mouse.y - startY) / fullTurn)
        onDoubleClicked: knob.parameter.set(knob.parameter.neutral)
        onWheel: knob.parameter.setPosition(knob.position + (wheel.angleDelta.y > 0 ? 0.02 : -0.02))
    }
}
