import QtQuick 2.12
import "../device"

// The settings of one trigger input. The methods take the number of the input first.
QtObject {
    id: trigger
    property int input: 0
    readonly property var first: [input]

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
    readonly property Parameter dynamicsLevel: Parameter {
        label: "Dyn. level"; method: "sendTriggerDynLevel"; before: trigger.first; value: 40
    }
    readonly property Parameter dynamicsTime: Parameter {
        label: "Dyn. time"; method: "sendTriggerDynTime"; before: trigger.first; value: 20
    }
    readonly property var strokeKnobs: [gain, threshold, highLevel, crosstalk, scanTime, mask, dynamicsLevel,
                                        dynamicsTime]

    readonly property Parameter lowPosition: Parameter {
        label: "Low position"; method: "sendTriggerHHLowPosition"; before: trigger.first; value: 10
    }
    readonly property Parameter highPosition: Parameter {
        label: "High position"; method: "sendTriggerHHHighPosition"; before: trigger.first; value: 110
    }
    readonly property Parameter chick: Parameter {
        label: "Chick"; method: "sendTriggerHHChickSensitivity"; before: trigger.first; value: 64
    }
    readonly property Parameter splash: Parameter {
        label: "Splash"; method: "sendTriggerHHSplashSensitivity"; before: trigger.first; value: 64
    }
    readonly property var hiHatKnobs: [lowPosition, highPosition, chick, splash]

    readonly property Parameter kind: Parameter {
        label: "Type"; method: "sendTriggerTriggerType"; before: trigger.first
    }
    readonly property Parameter bankPreset: Parameter {
        label: "Bank preset"; method: "sendTriggerBankPreset"; before: trigger.first
    }
    readonly property Parameter curve: Parameter {
        label: "Curve preset"; method: "sendTriggerCurvePreset"; before: trigger.first
    }
    readonly property Parameter positional: Parameter {
        label: "Positional"; method: "sendTriggerPositionalSensing"; before: trigger.first; to: 1
    }

    // The curve that was drawn: nine points, from the softest to the hardest stroke.
    readonly property var straight: [0, 16, 32, 48, 64, 80, 96, 112, 127]
    property var points: straight

    // While the finger moves, only the screen changes. finishDrawing() sends the curve under the preset's number.
    function draw(index, value) {
        var next = points.slice();
        next[index] = Math.min(127, Math.max(0, Math.round(value)));
        points = next;
    }
    function finishDrawing() {
        Device.send("sendTriggerCurveData", [curve.value, points]);
    }
    function straighten() {
        points = straight;
        finishDrawing();
    }
    function endTransfer() {
        Device.send("sendTriggerTransferEnd", first);
    }
}
