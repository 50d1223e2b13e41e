import QtQuick 2.12
import "../style"

// A level bar that holds its peak for a moment. 1.0 is full scale; a peak above full scale has the alarm colour.
Rectangle {
    id: meter
    property real level: 0
    property bool falling: false
    property color tint: Theme.accent
    property real peak: 0
    readonly property real shown: Math.min(1, Math.max(0, level))

    color: Theme.background
    radius: 2
    onLevelChanged: {
        if (level >= peak) {
            peak = level;
            hold.restart();
        }
    }

    Rectangle {
        width: parent.width
        y: meter.falling ? 0 : parent.height - height
        height: meter.shown * parent.height
        radius: parent.radius
        color: meter.tint
        opacity: 0.9
    }
    Rectangle {
        visible: meter.peak > 0.02
        width: parent.width
        height: 2
        y: {
            var at = Math.min(1, meter.peak) * (meter.height - height);
            return meter.falling ? at : meter.height - height - at;
        }
        color: meter.peak > 1 ? Theme.alarm : Theme.text
    }
    Timer {
        id: hold
        interval: 900
        onTriggered: meter.peak = meter.level
    }
}
