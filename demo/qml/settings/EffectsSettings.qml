import QtQuick 2.12

// The four global effect units.
QtObject {
    id: effects

    readonly property Effect ambience: Effect {
        title: "Ambience"
        active: Parameter { method: "setAmbienceActive"; to: 1; value: 1 }
        settings: [
            Parameter { label: "Level"; method: "setAmbienceLevel"; value: 52 },
            Parameter { label: "Pre-delay"; method: "setAmbiencePreDelay"; value: 8 }
        ]
    }
    readonly property Effect instrument: Effect {
        title: "Instrument reverb"
        active: Parameter { method: "setInstrumentReverbActive"; to: 1; value: 1 }
        kind: Parameter { label: "Type"; method: "setInstrumentReverbType"; to: 15 }
        settings: [
            Parameter { label: "Level"; method: "setInstrumentReverbLevel"; value: 64 },
            Parameter { label: "Pre-delay"; method: "setInstrumentReverbPreDelay"; value: 12 },
            Parameter { label: "Time"; method: "setInstrumentReverbTime"; value: 58 },
            Parameter { label: "High-pass"; method: "setInstrumentReverbPreHighPass"; value: 20 },
            Parameter { label: "High shelf"; method: "setInstrumentReverbHighShelf"; value: 70 },
            Parameter { label: "High damp"; method: "setInstrumentReverbHighDamp"; value: 44 },
            Parameter { label: "Gate"; method: "setInstrumentReverbGatedReverbThreshold" },
            Parameter { label: "To room"; method: "setInstrumentReverbSendToRoom"; value: 16 }
        ]
    }
    readonly property Effect room: Effect {
        title: "Room reverb"
        active: Parameter { method: "setRoomReverbActive"; to: 1; value: 1 }
        kind: Parameter { label: "Type"; method: "setRoomReverbType"; to: 15 }
        settings: [
            Parameter { label: "Level"; method: "setRoomReverbLevel"; value: 48 },
            Parameter { label: "Pre-delay"; method: "setRoomReverbPreDelay"; value: 24 },
            Parameter { label: "Time"; method: "setRoomReverbTime"; value: 82 },
            Parameter { label: "High-pass"; method: "setRoomReverbPreHighPass"; value: 16 },
            Parameter { label: "High shelf"; method: "setRoomReverbHighShelf"; value: 60 },
            Parameter { label: "High damp"; method: "setRoomReverbHighDamp"; value: 52 }
        ]
    }
    // The module scales these five by the range in the call. The screen uses percent for all effects.
    readonly property Effect multi: Effect {
        title: "Multi-FX"
        active: Parameter { method: "setMultiFxActive"; to: 1 }
        kind: Parameter { label: "Type"; method: "setMultiFxType"; to: 15 }
        settings: [
            Parameter { label: "Level"; method: "setMultiFxLevel"; value: 40 },
            Parameter { label: "To room"; method: "setMultiFxSendToRoom"; value: 10 },
            Percent { label: "Param 1"; method: "setMultiFxParam0"; value: 50 },
            Percent { label: "Param 2"; method: "setMultiFxParam1"; value: 25 },
            Percent { label: "Param 3"; method: "setMultiFxParam2"; value: 75 },
            Percent { label: "Param 4"; method: "setMultiFxParam3"; value: 30 },
            Percent { label: "Param 5"; method: "setMultiFxParam4"; value: 60 }
        ]
    }
    readonly property var all: [ambience, instrument, room, multi]
}
