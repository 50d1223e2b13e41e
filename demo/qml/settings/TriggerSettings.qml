import QtQuick 2.12
import "../device"

// How a pad's trigger input reads a stroke. The methods take the note first.
QtObject {
    id: trigger
    property int note: 36
    readonly property var first: [note]

    readonly property Parameter gain: Parameter {
        label: "Gain"; method: "sendTriggerGain"; before: trigger.first; value: 60
    }
    readonly property Parameter threshold: Parameter {
        label: "Threshold"; method: "sendTriggerThreshold"; before: trigger.first; value: 12
    }
    readonly property Parameter crosstalk: Parameter {
        label: "Crosstalk"; method: "sendTriggerXTalk"; before: trigger.first; value: 30
    }
    readonly property Parameter highLevel: Parameter {
        label: "High level"; method: "sendTriggerHighLevel"; before: trigger.first; value: 110
    }
    readonly property Parameter scanTime: Parameter {
        label: "Scan time"; method: "sendTriggerScanTime"; before: trigger.first; value: 20
    }
    readonly property Parameter mask: Parameter {
        label: "Retrigger"; method: "sendTriggerRetriggerMask"; before: trigger.first; value: 16
    }
    readonly property var knobs: [gain, threshold, highLevel, crosstalk, scanTime, mask]

    readonly property Parameter curve: Parameter {
        label: "Curve"; method: "sendTriggerCurvePreset"; before: trigger.first; to: 4
        wording: function(v) { return ["Linear", "Soft", "Hard", "S-curve", "Own"][v]; }
    }
    readonly property Parameter positional: Parameter {
        label: "Positional"; method: "sendTriggerPositionalSensing"; before: trigger.first; to: 1
    }

    // Nine points from the softest to the hardest stroke.
    property var points: shapes[0]
    readonly property int ownCurve: 4
    readonly property var shapes: [
        [0, 16, 32, 48, 64, 80, 96, 112, 127],
        [0, 42, 62, 77, 90, 101, 111, 119, 127],
        [0, 2, 8, 18, 32, 50, 71, 97, 127],
        [0, 5, 20, 40, 64, 87, 107, 122, 127]
    ]

    // A preset brings its shape with it; the drawn curve starts from whatever was shown.
    function showPreset() {
        if (curve.value < shapes.length)
            points = shapes[curve.value];
    }
    // While a finger draws, only the screen follows; the engine gets the finished curve.
    function draw(index, value) {
        var next = points.slice();
        next[index] = Math.min(127, Math.max(0, Math.round(value)));
        points = next;
    }
    function finishDrawing() {
        curve.set(ownCurve);
        Device.send("sendTriggerCurveData", [ownCurve, points]);
    }
}
