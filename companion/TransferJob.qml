import QtQml 2.12

// One file on its way to the engine, from start() to its end. It belongs to the queue, so that the queue goes on when the
// FileTransfer that started it is deleted.
QtObject {
    id: job
    property QtObject queue: null
    // False when no FileTransfer shows it any more.
    property bool isWanted: true
    property int kind: 0
    property string path
    property int slot: -1
    property string name
    // In bytes; NaN until the file has been checked.
    property real size: NaN
    property bool isChecked: false

    property int state: FileTransfer.Idle
    property int reason: FileTransfer.NoReason
    property string message
    property real progress: 0
    property real bytesSent: 0
    property real bytesPerSecond: 0
    property real secondsLeft: -1
    property int retransmissions: 0
    property int installedVersion: -1
    property int newVersion: -1

    signal ended()

    function end(state, reason, message) {
        job.reason = reason;
        job.message = message;
        if (state === FileTransfer.Done) {
            bytesSent = isNaN(size) ? bytesSent : size;
            progress = 1;
        }
        secondsLeft = state === FileTransfer.Done ? 0 : -1;
        job.state = state;
        ended();
    }
}
