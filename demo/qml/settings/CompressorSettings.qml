import QtQuick 2.12
import "../device"

// A compressor. The methods for pads take the note last. The engine reports levels only on request.
QtObject {
    id: compressor
    property string prefix
    property string requestMethod
    property int note: -1
    readonly property var after: note >= 0 ? [note] : []

    readonly property Parameter active: Parameter {
        label: "Compressor"; method: compressor.prefix + "Active"; after: compressor.after; to: 1; value: 1
    }
    readonly property Parameter threshold: Parameter {
        label: "Threshold"; method: compressor.prefix + "Threshold"; after: compressor.after; value: 76
    }
    readonly property Parameter ratio: Parameter {
        label: "Ratio"; method: compressor.prefix + "Ratio"; after: compressor.after; value: 40
    }
    readonly property Parameter knee: Parameter {
        label: "Knee"; method: compressor.prefix + "Knee"; after: compressor.after; value: 40
    }
    readonly property Parameter attack: Parameter {
        label: "Attack"; method: compressor.prefix + "AttackTime"; after: compressor.after; value: 12
    }
    readonly property Parameter release: Parameter {
        label: "Release"; method: compressor.prefix + "ReleaseTime"; after: compressor.after; value: 48
    }
    readonly property Parameter boost: Parameter {
        label: "Boost"; method: compressor.prefix + "Boost"; after: compressor.after; value: 16
    }
    readonly property var all: [threshold, ratio, knee, attack, release, boost]

    function requestLevels() {
        Device.request(requestMethod, after);
    }
}
