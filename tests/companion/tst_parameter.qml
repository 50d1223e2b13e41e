import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0

// What a Parameter sends, and when.
TestCase {
    id: testCase
    name: "Parameter"

    readonly property int patience: 20000
    property QtObject zelta: null
    property Parameter parameter: null

    Component {
        id: zeltaComponent
        QtObject {
            property var calls: []
            function setLevel(level) { calls = calls.concat(["level " + level]); }
            function setGain(note, gain) { calls = calls.concat(["gain " + note + " " + gain]); }
            function setRatio(ratio, note) { calls = calls.concat(["ratio " + ratio + " " + note]); }
            function setFx(value, from, to, type) { calls = calls.concat(["fx " + [value, from, to, type].join(" ")]); }
        }
    }
    Component {
        id: parameterComponent
        Parameter {
            engine: testCase.zelta
            method: "setLevel"
        }
    }
    function init() {
        zelta = createTemporaryObject(zeltaComponent, testCase);
        parameter = another({});
    }
    function another(properties) {
        return createTemporaryObject(parameterComponent, testCase, properties);
    }

    function test_everyChangeIsSent() {
        compare([zelta.calls, parameter.lastSent, parameter.value], [[], undefined, 0]);
        parameter.set(5);
        parameter.set(5);
        parameter.set(6);
        parameter.value = 7;
        compare(zelta.calls, ["level 5", "level 6", "level 7"]);
        compare(parameter.lastSent, 7);
    }
    function test_initialValueIsNotSent() {
        compare(another({ initial: 100 }).value, 100);
        compare(zelta.calls, []);
    }
    function test_argumentsAround_data() {
        return [
            { tag: "leading", set: { method: "setGain", leading: [38], from: -15, to: 15 }, value: -3, call: "gain 38 -3" },
            { tag: "trailing", set: { method: "setRatio", trailing: [38] }, value: 9, call: "ratio 9 38" },
            { tag: "several", set: { method: "setFx", trailing: [0, 10, 0], to: 10, stepSize: 0.5 }, value: 2.5,
              call: "fx 2.5 0 10 0" }
        ];
    }
    function test_argumentsAround(row) {
        another(row.set).set(row.value);
        compare(zelta.calls, [row.call]);
    }
    function test_values_data() {
        return [
            { tag: "rounded", value: 2.6, sent: ["level 3"] },
            { tag: "above the range", value: 900, sent: ["level 127"] },
            { tag: "below the range", set: { from: 20 }, value: 1, sent: [] },
            { tag: "lower end is no multiple of the step", set: { from: -15, to: 15, stepSize: 4, initial: 0 }, value: -15,
              sent: ["level -15"] },
            { tag: "upper end is no multiple of the step", set: { from: -15, to: 15, stepSize: 4, initial: 0 }, value: 15,
              sent: ["level 15"] },
            { tag: "beside the lower end", set: { from: 3, stepSize: 4, initial: 127 }, value: 3, sent: ["level 4"] },
            { tag: "tenths", set: { stepSize: 0.1 }, value: 0.3000001, sent: ["level 0.3"] },
            { tag: "without steps", set: { stepSize: 0 }, value: 0.123, sent: ["level 0.123"] },
            { tag: "switch", set: { to: 1 }, value: true, sent: ["level 1"] },
            { tag: "not a number", value: NaN, sent: [] },
            { tag: "undefined", value: undefined, sent: [] },
            { tag: "text", value: "9", sent: [] },
            { tag: "null", value: null, sent: [] }
        ];
    }
    function test_values(row) {
        another(row.set || {}).set(row.value);
        compare(zelta.calls, row.sent);
    }
    function test_text() {
        compare(another({ unit: "dB", initial: 3 }).text, "3 dB");
        compare(another({ initial: 3 }).text, "3");
        compare(another({ initial: 0.7, stepSize: 0.1, unit: "Q" }).text, "0.7 Q");
    }
    function test_learnedValueIsNotSent() {
        parameter.learn(120);
        compare([parameter.value, zelta.calls], [120, []]);
        parameter.learn(900);
        parameter.learn(NaN);
        parameter.learn(undefined);
        compare([parameter.value, zelta.calls], [127, []]);
    }
    function test_resend() {
        parameter.set(5);
        parameter.resend();
        compare(zelta.calls, ["level 5", "level 5"]);
    }
    function test_resendWaitsForTheInterval() {
        parameter.interval = 100;
        parameter.set(5);
        parameter.resend();
        parameter.resend();
        compare(zelta.calls, ["level 5"]);
        tryVerify(function() { return zelta.calls.length > 1; }, patience);
        compare(zelta.calls, ["level 5", "level 5"]);
    }
    function test_limitedRate() {
        parameter.interval = 100;
        for (var i = 1; i <= 50; ++i)
            parameter.set(i);
        compare(zelta.calls, ["level 1"]);
        tryCompare(parameter, "lastSent", 50, patience);
        compare(zelta.calls, ["level 1", "level 50"]);
        // The pause begins again after the latest value.
        parameter.set(51);
        compare(zelta.calls.length, 2);
        tryCompare(parameter, "lastSent", 51, patience);
    }
    function test_latestValueIsSentBeforeTheEnd() {
        var deleted = parameterComponent.createObject(testCase, { interval: 100000 });
        deleted.set(1);
        deleted.set(2);
        compare(zelta.calls, ["level 1"]);
        deleted.destroy();
        tryVerify(function() { return zelta.calls.length === 2; }, patience);
        compare(zelta.calls, ["level 1", "level 2"]);
    }
    // One fader for the gain of each pad.
    function test_otherArgumentsHaveTheirOwnValue() {
        var gain = another({ method: "setGain", leading: [38], from: -15, to: 15, initial: 0, interval: 100000 });
        gain.set(4);
        gain.set(5);
        gain.leading = [48];
        compare([gain.value, gain.lastSent], [0, undefined]);
        // The latest value for the first pad was sent before.
        compare(zelta.calls, ["gain 38 4", "gain 38 5"]);
        gain.interval = 0;
        gain.limiter.stop();
        gain.set(-2);
        gain.leading = [38];
        compare([gain.value, gain.lastSent], [5, 5]);
        gain.leading = [48];
        compare([gain.value, gain.lastSent], [-2, -2]);
        compare(zelta.calls, ["gain 38 4", "gain 38 5", "gain 48 -2"]);
    }
    function test_unknownMethod() {
        ignoreWarning(/no method setVolume/);
        var wrong = another({ method: "setVolume" });
        wrong.set(5);
        compare([zelta.calls, wrong.lastSent], [[], undefined]);
    }
    function test_noEngine() {
        var early = another({ engine: null });
        early.set(5);
        compare(early.lastSent, undefined);
        early.engine = zelta;
        early.resend();
        compare(zelta.calls, ["level 5"]);
    }
}
