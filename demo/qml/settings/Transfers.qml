pragma Singleton
import QtQuick 2.12
import "../device"

// The one transfer the screen shows: what was asked for, how far it is, and how it ended, in words.
QtObject {
    id: transfers

    readonly property var kinds: [
        { name: "Sound bank", method: "sendSoundBank", slotted: false },
        { name: "Trigger bank", method: "sendTriggerBank", slotted: false },
        { name: "Bank to slot", method: "sendImportSoundBank", slotted: true },
        { name: "Sample to slot", method: "sendImportWaveSample", slotted: true },
        { name: "Bluetooth", method: "sendBtFw", slotted: false },
        { name: "Engine firmware", method: "sendZeltaFirmware", slotted: false },
        { name: "Trigger firmware", method: "sendTriggerFirmware", slotted: false }
    ]

    property int kind: 0
    property bool busy: false
    property real progress: 0
    property int retransmissions: 0
    property string words: "Nothing sent yet"
    property bool failed: false

    function send(wanted, path, slot) {
        var chosen = kinds[wanted];
        kind = wanted;
        busy = true;
        failed = false;
        progress = 0;
        retransmissions = 0;
        words = chosen.name + ": waiting for the engine";
        var file = path.split("/").pop();
        var rest = chosen.method === "sendImportSoundBank" ? [file, slot] : chosen.slotted ? [slot] : [];
        Device.request(chosen.method, [path].concat(rest));
        silence.restart();
    }

    // A transfer that never starts has no signal of its own: a file that cannot be read, or firmware that
    // is no newer than what is installed. A version question alone may take twenty seconds.
    readonly property Timer silence: Timer {
        interval: 25000
        onTriggered: transfers.finish(false, "Nothing was sent: the file cannot be read or is not newer")
    }

    function advance(part) {
        busy = true;
        progress = part;
        words = kinds[kind].name + ": " + Math.round(part * 100) + " %";
        silence.stop();
    }
    function finish(well, text) {
        silence.stop();
        busy = false;
        failed = !well;
        if (well)
            progress = 1;
        words = text;
    }
    function finishWith(status) {
        var low = status & 0xff;
        var outcome = status === 0 ? "arrived whole"
                    : status === 0xff ? "not confirmed, or arrived damaged"
                    : low >= 0xe1 && low <= 0xe3 ? "the module's memory is full"
                    : "the engine reports status " + status;
        finish(status === 0, kinds[kind].name + ": " + outcome);
    }

    Component.onCompleted: {
        var module = Device.module;
        module.soundProgressChanged.connect(function() { advance(module.soundBankProgress); });
        module.triggerProgressChanged.connect(function() { advance(module.triggerBankProgress); });
        module.btfwProgressChanged.connect(function() { advance(module.btfwProgress); });
        module.waveTransferProgress.connect(function(slot, part) { advance(part); });
        module.soundbankTransferComplete.connect(function(status, count) {
            retransmissions = count;
            finishWith(status);
        });
        module.triggerbankTransferComplete.connect(finishWith);
        module.bluetoothTransferComplete.connect(finishWith);
        module.waveTransferComplete.connect(function(slot, status) { finishWith(status); });
        module.intFwUpdateStarted.connect(function() {
            silence.stop();
            words = "Sending firmware";
        });
        module.intZeltaFirmwareUpdateFinished.connect(function() {
            if (busy)
                finish(false, "The engine did not confirm the firmware");
        });
        module.updateZeltaFwComplete.connect(function() { finish(true, "Firmware installed"); });
        module.intTriggerFirmwareUpdateFinished.connect(function() { finish(true, "Trigger firmware sent"); });
    }
}
