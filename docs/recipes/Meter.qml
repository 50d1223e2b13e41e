// One meter of Meters.qml. 1.0 is full scale; the engine reports louder levels, too.
import QtQuick 2.12

Rectangle {
    id: meter
    property real level: 0
    property real fall: 1.5
    property int peakHoldMs: 1000

    property real shown: 0
    property real peak: 0
    property real peakAge: 0

    // Called once for each frame.
    function step(seconds) {
        shown = Math.max(level, shown - fall * seconds);
        peakAge += seconds;
        if (shown >= peak || peakAge * 1000 > peakHoldMs) {
            peak = shown;
            peakAge = 0;
        }
    }

    width: 30
    height: 260
    color: "#202020"
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: parent.height * Math.min(1, meter.shown)
        color: meter.shown > 1 ? "#d03020" : "#40b040"
    }
    Rectangle {
        width: parent.width
        height: 2
        y: parent.height * (1 - Math.min(1, meter.peak))
        color: "white"
    }
}
