import QtQuick 2.12

// An equaliser: four bands for an output, three for a pad. The methods for pads take the note first.
QtObject {
    id: eq
    property string prefix
    property int note: -1
    readonly property bool ofPad: note >= 0
    readonly property var before: ofPad ? [note] : []

    readonly property Parameter active: Parameter {
        label: "Equaliser"; method: eq.prefix + "Active"; before: eq.before; to: 1; value: 1
    }
    readonly property EqBand low: EqBand {
        label: "Low"; shape: "lowShelf"; method: eq.prefix + "Low"; before: eq.before; startFrequency: 120
    }
    readonly property EqBand mid1: EqBand {
        label: eq.ofPad ? "Mid" : "Mid 1"; shape: "peak"; method: eq.prefix + "Mid1"; before: eq.before
        startFrequency: 500
    }
    readonly property EqBand mid2: EqBand {
        label: "Mid 2"; shape: "peak"; method: eq.prefix + "Mid2"; before: eq.before; startFrequency: 2500
    }
    readonly property EqBand high: EqBand {
        label: "High"; shape: "highShelf"; method: eq.prefix + "High"; before: eq.before; startFrequency: 8000
    }
    readonly property var bands: ofPad ? [low, mid1, high] : [low, mid1, mid2, high]
}
