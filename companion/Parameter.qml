import QtQml 2.12

// One setting of the sound engine, as a fader or a switch needs it. The engine does not report its settings, so the value is
// the one that the screen set last.
QtObject {
    id: parameter
    // An Engine or a ZeltaConnect.
    property QtObject engine: null
    // For the screen.
    property string label
    // The method that is called with the arguments of leading, the value, and those of trailing.
    property string method
    property var leading: []
    property var trailing: []

    property real value: initial
    // Before anything has been sent.
    property real initial: from
    property real from: 0
    property real to: 127
    // The value is rounded to a multiple of it; 0: it is not rounded.
    property real stepSize: 1
    property string unit
    readonly property string text: format(value) + (unit ? " " + unit : "")

    // At least this time between two calls, in milliseconds. The latest value is always sent: a value that waits is sent at
    // once when the arguments change and when the object is deleted.
    property int interval: 0

    // What was sent last with the present arguments; undefined: nothing.
    property var lastSent

    // After each call of the method.
    signal sent(real value)

    // Changes the value within its range, and sends it if it is a new one.
    function set(wanted) {
        if (typeof wanted === "boolean" || typeof wanted === "number" && !isNaN(wanted))
            value = nearest(Number(wanted));
    }
    // Takes over a value that the engine reported, without sending it.
    function learn(reported) {
        if (typeof reported !== "number" || isNaN(reported))
            return;
        isLearning = true;
        value = nearest(reported);
        isLearning = false;
        pending = false;
    }
    // Sends the value again, for example after a restart of the engine.
    function resend() {
        change();
    }

    // Restricts a number to the range and the steps.
    function nearest(number) {
        // Steps of 0.1 would otherwise appear as 0.30000000000000004.
        var stepped = stepSize > 0 ? Number((Math.round(bounded(number) / stepSize) * stepSize).toFixed(6)) : number;
        // The ends of the range need not be multiples of the step.
        return bounded(stepped);
    }
    function bounded(number) {
        return Math.min(to, Math.max(from, number));
    }
    function format(number) {
        return String(Number(number.toFixed(stepSize > 0 ? 6 : 2)));
    }

    property bool isComplete: false
    property bool isLearning: false
    property bool pending: false
    // What was sent for each list of arguments, and the list that value belongs to.
    property var remembered: ({})
    property var call: null

    onValueChanged: {
        if (isComplete && !isLearning)
            change();
    }
    function change() {
        if (limiter.running)
            pending = true;
        else
            send();
    }
    function send() {
        pending = false;
        var zelta = engine && engine.zelta !== undefined ? engine.zelta : engine;
        var number = nearest(value);
        if (!zelta || isNaN(number))
            return;
        if (typeof zelta[call.method] !== "function") {
            console.warn("Parameter: there is no method " + call.method);
            return;
        }
        zelta[call.method].apply(zelta, call.leading.concat([number], call.trailing));
        remembered[call.key] = number;
        lastSent = number;
        if (interval > 0)
            limiter.restart();
        sent(number);
    }
    readonly property Timer limiter: Timer {
        interval: parameter.interval
        onTriggered: parameter.flush()
    }
    function flush() {
        if (pending)
            send();
    }

    // With other arguments the method sets something else: the value is the one that was sent for that.
    onMethodChanged: readdress()
    onLeadingChanged: readdress()
    onTrailingChanged: readdress()
    function readdress() {
        if (!isComplete)
            return;
        var next = currentCall();
        if (next.key === call.key)
            return;
        flush();
        call = next;
        lastSent = remembered[next.key];
        learn(lastSent === undefined ? initial : lastSent);
    }
    function currentCall() {
        return { key: JSON.stringify([method, leading, trailing]), method: method, leading: leading, trailing: trailing };
    }

    Component.onCompleted: {
        call = currentCall();
        isComplete = true;
    }
    Component.onDestruction: flush()
}
