import QtQuick 2.12
import "../device"
import "../style"

// Shows whether the engine sends. The link has no handshake, so only traffic shows that it works.
Row {
    id: line
    property string address
    property int rate: 0
    property int seen: 0
    property int silentTicks: silence
    readonly property int silence: 4
    readonly property bool receiving: silentTicks < silence
    readonly property string text: "engine " + address + ": "
                                   + (receiving ? "receiving, " + rate + " events/s" : "no signal")

    spacing: 10

    Timer {
        interval: 500
        repeat: true
        running: true
        onTriggered: {
            var fresh = Device.events - line.seen;
            line.seen = Device.events;
            line.silentTicks = fresh > 0 ? 0 : Math.min(line.silence, line.silentTicks + 1);
            // The mean of the last two ticks, so that the figure does not jump.
            line.rate = Math.round((line.rate + fresh * 2) / 2);
        }
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 12
        height: 12
        radius: 6
        color: line.receiving ? Theme.accent : Theme.alarm
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        Text {
            text: line.text
            color: line.receiving ? Theme.text : Theme.alarm
            font.pixelSize: 14
        }
        Text {
            visible: !line.receiving
            text: "Start zelta-engine-sim, or run zelta-demo --simulate"
            color: Theme.dim
            font.pixelSize: 13
        }
    }
}
