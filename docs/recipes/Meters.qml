// Two meters at 60 Hz, which fall smoothly and hold their peak.
import QtQuick 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 200
    height: 320
    // Full scale per second.
    readonly property real fall: 1.5
    readonly property int peakHoldMs: 1000

    Engine {
        id: drums
    }
    // One request for each drawn frame, and none while the meters cannot be seen.
    Timer {
        interval: 16
        repeat: true
        running: screen.visible
        onTriggered: {
            drums.zelta.requestOutsUpdate();
            left.step(interval / 1000);
            right.step(interval / 1000);
        }
    }

    Row {
        anchors.centerIn: parent
        spacing: 20
        Meter {
            id: left
            objectName: "left"
            level: drums.zelta.masterOutL
            fall: screen.fall
            peakHoldMs: screen.peakHoldMs
        }
        Meter {
            id: right
            objectName: "right"
            level: drums.zelta.masterOutR
            fall: screen.fall
            peakHoldMs: screen.peakHoldMs
        }
    }
}
