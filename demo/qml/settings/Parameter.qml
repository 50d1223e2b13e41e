import QtQuick 2.12
import "../device"

// One setting of the sound engine. The engine does not report its settings, so the value is the one that the screen
// set last. set() calls the module's method with the arguments of `before`, the value, and those of `after`.
QtObject {
    id: parameter
    property string label
    property string method
    property real value: 0
    property real from: 0
    property real to: 127
    property real step: 1
    property bool logarithmic: false
    property bool bipolar: false
    property real neutral: from
    property var before: []
    property var after: []
    property var wording: null

    readonly property string text: wording ? wording(value) : String(value)
    readonly property bool isOn: value !== 0
    readonly property real position: positionOf(value)
    readonly property real neutralPosition: positionOf(neutral)

    function positionOf(v) {
        return logarithmic ? Math.log(v / from) / Math.log(to / from) : (v - from) / (to - from);
    }
    function set(v) {
        var wanted = Math.round(Math.min(to, Math.max(from, v)) / step) * step;
        // Steps of 0.1 would otherwise appear as 0.30000000000000004.
        wanted = Number(wanted.toFixed(3));
        if (wanted === value)
            return;
        value = wanted;
        Device.send(method, before.concat([wanted], after));
    }
    // Takes over a value that the engine reported, without sending it.
    function learn(v) {
        value = Math.min(to, Math.max(from, v));
    }
    function setPosition(p) {
        var bounded = Math.min(1, Math.max(0, p));
        set(logarithmic ? from * Math.pow(to / from, bounded) : from + bounded * (to - from));
    }
    function toggle() {
        set(isOn ? 0 : 1);
    }
}
