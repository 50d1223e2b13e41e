pragma Singleton
import QtQuick 2.12
import "../device"

// The one transfer the screen shows: what was asked for, how far it is, and how it ended, in words.
//
// The module's own signals leave some ends open: it says nothing when a file cannot be opened, or when the engine wants
// data that is not there; and 0 is also what an import reports that nobody has acknowledged. So this listens to the
// engine's answers too, and asks for the pedal when all is quiet: a question waits its turn, so its answer says that
// the file before it is done with.
QtObject {
    id: transfers

    readonly property var kinds: [
        { name: "Sound bank", method: "sendSoundBank", slotted: false, firmware: false },
        { name: "Trigger bank", method: "sendTriggerBank", slotted: false, firmware: false },
        { name: "Bank to slot", method: "sendImportSoundBank", slotted: true, firmware: false },
        { name: "Sample to slot", method: "sendImportWaveSample", slotted: true, firmware: false },
        { name: "Bluetooth", method: "sendBtFw", slotted: false, firmware: false },
        { name: "Engine firmware", method: "sendZeltaFirmware", slotted: false, firmware: true },
        { name: "Trigger firmware", method: "sendTriggerFirmware", slotted: false, firmware: true }
    ]

    property int kind: 0
    property bool busy: false
    property real progress: 0
    property int retransmissions: 0
    property string words: "Nothing sent yet"
    property bool failed: false

    // What is known of the transfer so far.
    property bool begun: false
    property bool allSent: false
    property bool versionSeen: false
    property bool firmwareAccepted: false
    property bool endSeen: false
    property int endStatus: 0
    property int refusal: 0
    property int quietTimes: 0

    // Questions for the pedal that may still be answered: about this transfer, and about those before it.
    property int probes: 0
    property int staleProbes: 0

    // Two letters each, as the engine has them.
    readonly property int endAnswer: 0x4445
    readonly property int dataAnswer: 0x4443
    readonly property int engineVersionAnswer: 0x564e
    readonly property int triggerVersionAnswer: 0x5456

    // Longer than the four seconds that the module rests before it sends again.
    property int quietTime: 6000
    // Longer than the twenty that it waits for an answer before it goes on with what is queued behind.
    property int answerTime: 21000
    readonly property int mostQuietTimes: 6

    function send(wanted, path, slot) {
        var chosen = kinds[wanted];
        kind = wanted;
        busy = true;
        failed = false;
        progress = 0;
        retransmissions = 0;
        begun = false;
        allSent = false;
        versionSeen = false;
        firmwareAccepted = false;
        endSeen = false;
        endStatus = 0;
        refusal = 0;
        quietTimes = 0;
        words = chosen.name + ": waiting for the engine";
        var file = path.split("/").pop();
        var rest = chosen.method === "sendImportSoundBank" ? [file, slot] : chosen.slotted ? [slot] : [];
        Device.request(chosen.method, [path].concat(rest));
        awaitSign(quietTime);
        if (staleProbes > 0)
            stale.restart();
        // Firmware that is not newer is passed over without a word.
        if (chosen.firmware)
            probe();
    }

    readonly property Timer quiet: Timer {
        repeat: true
        onTriggered: {
            // The end of a sound bank may be waited for for minutes, and always tells.
            if (transfers.allSent)
                return;
            // The module has given up what was asked a wait ago. To ask earlier would make it wait the longer.
            if (++transfers.quietTimes > 1)
                transfers.probes = 0;
            if (transfers.quietTimes > transfers.mostQuietTimes) {
                transfers.finish(false, "the engine does not answer");
            } else {
                transfers.awaitSign(transfers.answerTime);
                transfers.probe();
            }
        }
    }
    function awaitSign(time) {
        quiet.interval = time;
        quiet.restart();
    }

    // Questions of a transfer that was broken off wait in the module until the next one is sent, and go before it, one
    // after the other. What is not answered by then never will be.
    readonly property Timer stale: Timer {
        interval: transfers.answerTime
        onTriggered: transfers.forgetStale()
    }
    function forgetStale() {
        if (--staleProbes > 0)
            stale.restart();
        else
            stale.stop();
    }

    function probe() {
        ++probes;
        Device.request("requestHHRawValue");
    }
    function probeAnswered() {
        if (staleProbes > 0) {
            forgetStale();
        } else if (busy) {
            // Each is queued behind the file, so the first answer tells.
            if (probes > 0)
                --probes;
            engineIsIdle();
        }
    }
    function engineIsIdle() {
        if (begun)
            finish(false, "broken off, the engine asked for what is not there or the file cannot be read on");
        else if (!kinds[kind].firmware)
            finish(false, "nothing was sent, the file cannot be read");
        else if (versionSeen)
            finish(false, "not sent, the module has this version or a newer one");
        else
            finish(false, "not sent, the file carries no firmware version");
    }

    function signOfLife() {
        quietTimes = 0;
        awaitSign(quietTime);
    }
    function advance(part) {
        if (!busy)
            return;
        signOfLife();
        begun = true;
        progress = Math.min(part, 1);
        // Beyond the end there is nothing to send, and the module breaks off.
        allSent = part === 1;
        // What is acknowledged while data is still sent is not the end of this file.
        endSeen = false;
        words = kinds[kind].name + ": " + Math.round(progress * 100) + " %";
    }
    function finish(well, text) {
        if (!busy)
            return;
        quiet.stop();
        staleProbes += probes;
        probes = 0;
        busy = false;
        failed = !well;
        if (well)
            progress = 1;
        words = kinds[kind].name + ": " + text;
    }

    // The module is through with the file and reports this status.
    function conclude(status) {
        if (refusal !== 0)
            finish(false, "the engine refused it (" + refusal.toString(16) + ")");
        else if (!endSeen)
            finish(false, "not confirmed by the engine");
        else if (endStatus !== 0 || status !== 0)
            finish(false, "arrived damaged (" + (endStatus !== 0 ? endStatus : status) + ")");
        else
            finish(true, "arrived whole");
    }

    function takeAnswer(id, first, second) {
        if (!busy)
            return;
        if (id === engineVersionAnswer || id === triggerVersionAnswer) {
            versionSeen = true;
        } else if (id === endAnswer) {
            endSeen = true;
            endStatus = second;
        } else if (id === dataAnswer) {
            takeDataAnswer(second & 0xff);
        } else {
            return;
        }
        signOfLife();
    }
    function takeDataAnswer(code) {
        if (code >= 0xe1 && code <= 0xe3) {
            finish(false, "the engine's memory is full");
        } else if ((code & 0xf0) === 0xe0) {
            refusal = code;
        } else if (code !== 0) {
            if (code === 0xbe)
                ++retransmissions;
            allSent = false;
        }
    }

    Component.onCompleted: {
        var module = Device.module;
        Device.answered.connect(takeAnswer);
        module.hihatRawValueChanged.connect(probeAnswered);
        module.soundProgressChanged.connect(function() { advance(module.soundBankProgress); });
        module.triggerProgressChanged.connect(function() { advance(module.triggerBankProgress); });
        module.btfwProgressChanged.connect(function() { advance(module.btfwProgress); });
        module.waveTransferProgress.connect(function(slot, part) { advance(part); });
        module.soundbankTransferComplete.connect(function(status, count) {
            retransmissions = count;
            conclude(status);
        });
        module.triggerbankTransferComplete.connect(conclude);
        module.bluetoothTransferComplete.connect(conclude);
        module.waveTransferComplete.connect(function(slot, status) { conclude(status); });
        module.intFwUpdateStarted.connect(function() {
            begun = true;
            words = kinds[kind].name + ": sending";
        });
        module.updateZeltaFwComplete.connect(function() { firmwareAccepted = true; });
        module.intZeltaFirmwareUpdateFinished.connect(function() {
            if (firmwareAccepted)
                finish(true, "installed");
            else
                conclude(0);
        });
        module.intTriggerFirmwareUpdateFinished.connect(function() { conclude(0); });
    }
}
