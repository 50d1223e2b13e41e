import QtQuick 2.12

// Where the sources that do not belong to a pad are routed.
QtObject {
    readonly property Routing playback: Routing { label: "Playback"; method: "setPlaybackRouting" }
    readonly property Routing click: Routing { label: "Click"; method: "setMetronomeClickRouting" }
    readonly property Routing instrumentReverb: Routing { label: "Instrument reverb"; method: "setInstReverbRouting" }
    readonly property Routing roomReverb: Routing { label: "Room reverb"; method: "setRoomReverbRouting" }
    readonly property Routing multiFx: Routing { label: "Multi-FX"; method: "setMultiFxRouting" }
    readonly property var all: [playback, click, instrumentReverb, roomReverb, multiFx]
}
