pragma Singleton
import QtQml 2.12
import ZeltaConnect.Companion 1.0
import "../device"

// The transfer that the screen shows. The companion module sends the file and determines the result.
QtObject {
    id: transfers

    readonly property var kinds: [
        { name: "Sound bank", kind: FileTransfer.SoundBank, method: "sendSoundBank", values: 1 },
        { name: "Trigger bank", kind: FileTransfer.TriggerBank, method: "sendTriggerBank", values: 1 },
        { name: "Bank to slot", kind: FileTransfer.SoundBankImport, method: "sendImportSoundBank", values: 3, slotted: true },
        { name: "Sample to slot", kind: FileTransfer.WaveImport, method: "sendImportWaveSample", values: 2, slotted: true },
        { name: "Bluetooth", kind: FileTransfer.BluetoothFirmware, method: "sendBtFw", values: 1 },
        { name: "Engine firmware", kind: FileTransfer.EngineFirmware, method: "sendZeltaFirmware", values: 1 },
        { name: "Trigger firmware", kind: FileTransfer.TriggerFirmware, method: "sendTriggerFirmware", values: 1 }
    ]

    // The folder that the list of files shows first.
    property url startFolder

    property int kind: 0
    readonly property bool busy: transfer.active
    readonly property bool failed: transfer.state === FileTransfer.Failed || transfer.state === FileTransfer.NotNewer
                                   || transfer.state === FileTransfer.Refused
    readonly property real progress: transfer.progress
    readonly property int retransmissions: transfer.retransmissions
    readonly property string statusText: transfer.state === FileTransfer.Idle ? "Nothing sent yet"
                                                                              : kinds[kind].name + ": " + activity

    readonly property string activity: {
        switch (transfer.state) {
        case FileTransfer.Waiting:
            return "waiting for the engine";
        case FileTransfer.Sending:
        case FileTransfer.Repeating:
            return Math.floor(transfer.progress * 100) + " %";
        case FileTransfer.Finishing:
            return "sent, waiting for the engine";
        default:
            return transfer.message;
        }
    }

    readonly property FileTransfer transfer: FileTransfer {
        engine: Device.module
    }

    function send(wanted, path, slot) {
        if (busy)
            return;
        var chosen = kinds[wanted];
        kind = wanted;
        transfer.kind = chosen.kind;
        transfer.source = path;
        transfer.slot = chosen.slotted ? slot : -1;
        // The companion makes this call when it has checked the file.
        if (transfer.start())
            Device.called(chosen.method, chosen.values);
    }
}
