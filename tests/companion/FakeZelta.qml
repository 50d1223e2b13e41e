import QtQml 2.12

// Replaces the module: records the calls, and emits what the test wants. Answers only the probe with the number
// answeredProbe.
QtObject {
    id: zelta
    property var calls: []
    property int answeredProbe: 0
    readonly property int probes: calls.filter(function(call) { return call === "requestHHRawValue"; }).length
    // Without the probes.
    readonly property var sent: calls.filter(function(call) { return call !== "requestHHRawValue"; })

    property real soundBankProgress: 0
    property real triggerBankProgress: 0
    signal soundProgressChanged()
    signal triggerProgressChanged()
    signal btfwProgressChanged()
    signal waveTransferProgress(int slot, real progress)
    signal soundbankTransferComplete(int complete, int retransmitCount)
    signal triggerbankTransferComplete(int complete)
    signal bluetoothTransferComplete(int complete)
    signal waveTransferComplete(int slot, int complete)
    signal intZeltaFirmwareUpdateStarted(int currentVersion, int newVersion)
    signal intZeltaFirmwareUpdateFinished()
    signal intTriggerFirmwareUpdateStarted(int currentVersion, int newVersion)
    signal intTriggerFirmwareUpdateFinished()
    signal updateZeltaFwComplete()
    signal hihatRawValueChanged(int value)
    signal udpPacketArrived(int id, int idx, int data)

    function record(values) {
        calls = calls.concat([values.join(" ")]);
    }
    function sendZeltaFirmware(file) { record(["sendZeltaFirmware", file]); }
    function sendTriggerFirmware(file) { record(["sendTriggerFirmware", file]); }
    function sendSoundBank(file) { record(["sendSoundBank", file]); }
    function sendTriggerBank(file) { record(["sendTriggerBank", file]); }
    function sendImportSoundBank(file, name, slot) { record(["sendImportSoundBank", file, name, slot]); }
    function sendImportWaveSample(file, slot) { record(["sendImportWaveSample", file, slot]); }
    function sendBtFw(file) { record(["sendBtFw", file]); }
    function checkBtFw(list) { return list[0].indexOf("/missing") >= 0 ? -1 : 0; }
    function requestHHRawValue() {
        record(["requestHHRawValue"]);
        if (probes === answeredProbe)
            answer();
    }

    // Events of the engine.
    function answer() {
        udpPacketArrived(0x484c, 512, 0);
        hihatRawValueChanged(512);
    }
    function acknowledgeEnd(status) {
        udpPacketArrived(0x4445, 0, status);
    }
    function answerData(code) {
        udpPacketArrived(0x4443, 5, code);
    }
    function answerVersion(id) {
        udpPacketArrived(id, 1, 4);
    }
    function sendBankProgress(progress) {
        soundBankProgress = progress;
        soundProgressChanged();
    }
    function sendTriggerProgress(progress) {
        triggerBankProgress = progress;
        triggerProgressChanged();
    }
}
