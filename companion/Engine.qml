import QtQml 2.12
import ZeltaConnect 1.0

// One ZeltaConnect object, and what a screen wants to know about the connection. Creating it blocks the GUI thread until the
// engine answers a ping, for up to 10 s.
QtObject {
    id: engine

    // An event arrived within this time. In milliseconds.
    property int timeout: 3000
    // The engine is asked for its output levels when nothing has arrived for this time. In milliseconds.
    property int interval: 1000

    readonly property bool connected: isHeard && silentFor < timeout
    // Milliseconds since the latest event, or since the object was created. Counted in steps of half a second.
    readonly property int silentFor: silentSteps * step
    // The events of the last second.
    readonly property int eventsPerSecond: recent + before
    // The kinds of events of the last second, the most frequent first, for example ["levels", "note"].
    property var lastKinds: []
    // The position of the hi-hat pedal, 0 to 127.
    property int pedal: 0
    // How many times the engine answered again after it had been silent.
    property int restarts: 0

    // The engine answers again after it was silent for longer than timeout: it may have been restarted, and may have lost its
    // settings. An interruption of the network looks the same; a restart within timeout is not noticed.
    signal restarted()

    readonly property int step: 500
    // The MIDI foot controller.
    readonly property int pedalController: 4
    property bool isHeard: false
    property int silentSteps: 0
    property int askedSteps: 0
    property int recent: 0
    property int before: 0
    // Changed by every event, and therefore no property that is observed.
    readonly property var counts: ({ all: 0, kinds: {}, olderKinds: {} })

    function note(kind) {
        ++counts.all;
        counts.kinds[kind] = (counts.kinds[kind] || 0) + 1;
        if (silentSteps > 0 || !isHeard)
            hear();
    }
    function hear() {
        var wasSilent = isHeard && !connected;
        isHeard = true;
        silentSteps = 0;
        askedSteps = 0;
        if (wasSilent) {
            ++restarts;
            restarted();
        }
    }
    // The engine sends to the address from which it last received a datagram, so a restarted one must be asked.
    function ask() {
        askedSteps = 0;
        zeltaConnect.requestOutsUpdate();
    }
    function takeStep() {
        before = recent;
        recent = counts.all;
        counts.all = 0;
        publishKinds();
        if (recent === 0) {
            ++silentSteps;
            if (++askedSteps * step >= interval)
                ask();
        }
    }
    function publishKinds() {
        var sums = Object.assign({}, counts.olderKinds);
        for (var kind in counts.kinds)
            sums[kind] = (sums[kind] || 0) + counts.kinds[kind];
        counts.olderKinds = counts.kinds;
        counts.kinds = {};
        var names = Object.keys(sums).sort(function(a, b) { return sums[b] - sums[a]; });
        if (names.join() !== lastKinds.join())
            lastKinds = names;
    }

    readonly property Timer timer: Timer {
        interval: engine.step
        repeat: true
        running: true
        onTriggered: engine.takeStep()
    }
    Component.onCompleted: ask()

    readonly property ZeltaConnect zelta: ZeltaConnect {
        id: zeltaConnect
        onNoteChanged: engine.note("note")
        onAfterTouchNoteChanged: engine.note("pressure")
        onPositionChanged: {
            engine.note("position");
            if (position >> 8 === engine.pedalController)
                engine.pedal = position & 0x7f;
        }
        onBeatChanged: engine.note("beat")
        onTempoChanged: engine.note("tempo")
        onOutputLevelsChanged: engine.note("levels")
        onPadCpChanged: engine.note("compressor")
        onMasterCpChanged: engine.note("compressor")
        onMonitorCpChanged: engine.note("compressor")
        onHeadCpChanged: engine.note("compressor")
        onPowerChanged: engine.note("switch")
        onFoot1Changed: engine.note("switch")
        onFoot2Changed: engine.note("switch")
        onAux3Changed: engine.note("switch")
        onAux4Changed: engine.note("switch")
        onHpDetectChanged: engine.note("switch")
        onMixInDetectChanged: engine.note("switch")
        onHomeButtonChanged: engine.note("switch")
        onPotPacketArrived: engine.note("pot")
        onProgramChanged: engine.note("program")
        onSampleFlashSizeChanged: engine.note("memory")
        onTotalSampleFlashSizeChanged: engine.note("memory")
        onSysEx: engine.note("sysEx")
        onTestCommand: engine.note("test")
        onUdpPacketArrived: engine.note("answer")
    }
}
