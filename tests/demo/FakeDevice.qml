pragma Singleton
import QtQuick 2.12

// Notes what is asked for. Answers the question for the pedal that has this number; the test answers the others.
QtObject {
    property var requests: []
    property int answeredQuestion: 0
    readonly property int questions: requests.filter(function(method) { return method === "requestHHRawValue"; }).length

    signal answered(int id, int first, int second)

    function request(method, values) {
        requests = requests.concat([method]);
        if (method === "requestHHRawValue" && questions === answeredQuestion)
            Qt.callLater(answer);
    }
    function answer() {
        module.hihatRawValueChanged(512);
    }

    readonly property QtObject module: QtObject {
        property real soundBankProgress: 0
        property real triggerBankProgress: 0
        property real btfwProgress: 0

        signal hihatRawValueChanged(int value)
        signal soundProgressChanged()
        signal triggerProgressChanged()
        signal waveTransferProgress(int slot, real progress)
        signal soundbankTransferComplete(int complete, int retransmitCount)
        signal triggerbankTransferComplete(int complete)
        signal bluetoothTransferComplete(int complete)
        signal waveTransferComplete(int slot, int complete)
        signal intFwUpdateStarted()
        signal updateZeltaFwComplete()
        signal intZeltaFirmwareUpdateFinished()
        signal intTriggerFirmwareUpdateFinished()
    }
}
