// Edits a velocity curve of nine points and sends it while it is drawn.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 480
    height: 320
    property int curve: 0
    property var points: [0, 16, 32, 48, 64, 80, 96, 112, 127]

    Engine {
        id: drums
    }
    function movePoint(index, value) {
        // A new array, because a binding does not notice a change inside one.
        var moved = points.slice();
        moved[index] = Math.max(0, Math.min(127, Math.round(value)));
        points = moved;
        if (!limiter.running)
            limiter.start();
    }
    function send() {
        drums.zelta.sendTriggerCurveData(curve, points);
    }
    // At most 25 curves per second. The timer sends what the curve is then, so also the last change.
    Timer {
        id: limiter
        interval: 40
        onTriggered: screen.send()
    }

    Row {
        anchors.fill: parent
        Repeater {
            model: 9
            Slider {
                objectName: "point" + index
                width: screen.width / 9
                height: parent.height
                orientation: Qt.Vertical
                to: 127
                stepSize: 1
                value: screen.points[index]
                onMoved: screen.movePoint(index, value)
            }
        }
    }
}
