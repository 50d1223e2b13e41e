import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"

// Tap tempo: sends each tap to the engine and, from the second tap on, the resulting tempo.
PushButton {
    id: button
    text: "TAP"
    objectName: "tap"

    property real lastTap: 0
    property var gaps: []
    // A longer gap starts a new count, in ms.
    readonly property real patience: 2500

    onPressed: {
        Device.send("setMetronomeTap", [true]);
        var now = Date.now(), gap = now - lastTap;
        lastTap = now;
        gaps = gap > patience ? [] : gaps.concat([gap]).slice(-4);
        if (gaps.length > 0) {
            var sum = gaps.reduce(function(total, next) { return total + next; }, 0);
            Settings.metronome.tempo.set(60000 * gaps.length / sum);
        }
    }
    onReleased: Device.send("setMetronomeTap", [false])
}
