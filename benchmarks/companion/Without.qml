import QtQuick 2.12
import ZeltaConnect 1.0

// The same screen on top of the module alone.
Face {
    id: face
    readonly property var module: connection
    zelta: connection
    names: ["Kick", "Snare", "Tom 1", "Tom 2", "Tom 3", "Tom 4", "Ride", "Hi-hat", "Crash 1", "Crash 2", "Aux 1", "Aux 2",
        "Aux 3", "Aux 4"]
    status: unanswered < 3 ? "connected" : "no signal"
    property int unanswered: 3
    readonly property var zoneNames: ["Head", "Rim", "Bell"]

    hits: ListModel {
        id: latestHits
    }
    ZeltaConnect {
        id: connection
        onNoteChanged: {
            var pad = note >> 16 & 0xf;
            var zone = note >> 24 & 0x7;
            face.flash(pad);
            latestHits.insert(0, { pad: pad, zone: zone, note: note >> 8 & 0xff, velocity: note & 0xff,
                                   name: face.names[pad], zoneName: face.zoneNames[zone] });
            if (latestHits.count > 8)
                latestHits.remove(8);
        }
        onOutputLevelsChanged: face.unanswered = 0
    }
    Timer {
        interval: 1000
        repeat: true
        running: true
        triggeredOnStart: true
        onTriggered: {
            face.unanswered += 1;
            connection.requestOutsUpdate();
        }
    }
}
