import QtQuick 2.12
import "../device/pads.js" as Pads

// The metronome. Its tempo is the last one that the screen set or the engine reported.
QtObject {
    readonly property Parameter active: Parameter { label: "Metronome"; method: "setMetronomeActive"; to: 1 }
    readonly property Parameter tempo: Parameter {
        label: "Tempo"; method: "setMetronomeTempo"; from: 20; to: 273; value: 120
        wording: function(v) { return v + " bpm"; }
    }
    readonly property Parameter beats: Parameter {
        label: "Beats in a bar"; method: "setMetronomeTimeSignatureNum"; from: 1; to: 16; value: 4
    }
    // Always a power of two; the page offers no other values.
    readonly property Parameter noteValue: Parameter {
        label: "Beat value"; method: "setMetronomeTimeSignatureDen"; from: 2; to: 16; value: 4
    }
    readonly property Parameter interval: Parameter {
        label: "Interval"; method: "setMetronomeInterval"; to: 7
    }
    readonly property Parameter accent: Parameter { label: "Accent"; method: "setMetronomeAccent"; to: 1; value: 1 }
    readonly property Parameter click: Parameter { label: "Click sound"; method: "setMetronomeClick"; to: 31; value: 3 }
    readonly property Parameter tapNote1: Parameter {
        label: "First pad"; method: "setMetronomeTapNote1"; value: 38; wording: Pads.nameOfNote
    }
    readonly property Parameter tapNote2: Parameter {
        label: "Second pad"; method: "setMetronomeTapNote2"; value: 88; wording: Pads.nameOfNote
    }
    readonly property Parameter level: Parameter { label: "Click"; method: "setMetronomeClickLevel"; value: 80 }
}
