import QtQml 2.12
import ZeltaConnect 1.0
import ZeltaConnect.Companion 1.0

// One engine and one FileTransfer, with the names of their values.
QtObject {
    id: screen
    readonly property var stateNames: ["Idle", "Waiting", "Sending", "Repeating", "Finishing", "Done", "Failed", "NotNewer",
        "Refused"]
    readonly property var reasonNames: ["NoReason", "Cancelled", "NoEngine", "UnknownKind", "NotAPath", "NotALocalFile",
        "SlotOutOfRange", "FileMissing", "NotAFile", "FileEmpty", "FileTooLarge", "FileUnreadable", "NoVersion",
        "SameOrNewerInstalled", "MemoryFull", "DataRefused", "Damaged", "NotAcknowledged", "Aborted", "EngineSilent"]
    readonly property string stateName: stateNames[transfer.state]
    readonly property string reasonName: reasonNames[transfer.reason]
    readonly property string message: transfer.message
    readonly property real progress: transfer.progress
    property string states
    property int ends: 0
    property int successes: 0
    property int failures: 0

    readonly property ZeltaConnect zelta: ZeltaConnect {}
    readonly property FileTransfer transfer: FileTransfer {
        engine: screen.zelta
        onStateChanged: screen.states += screen.stateNames[state] + " "
        onSucceeded: ++screen.successes
        onFailed: ++screen.failures
        onFinished: ++screen.ends
    }
    function send(kind, path) {
        transfer.kind = FileTransfer[kind];
        transfer.source = path;
        transfer.slot = kind === "SoundBankImport" || kind === "WaveImport" ? 7 : -1;
        transfer.name = kind === "SoundBankImport" ? "Kit A" : "";
        transfer.start();
    }
}
