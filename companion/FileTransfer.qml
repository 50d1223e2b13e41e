import QtQml 2.12
import "paths.js" as Paths
import "transferkinds.js" as Kinds
import "transferqueues.js" as Queues

// Sends one file to the sound engine and reports how it ended. All FileTransfer objects of one ZeltaConnect share a queue.
QtObject {
    id: transfer

    enum Kind {
        NoKind,
        EngineFirmware,
        TriggerFirmware,
        SoundBank,
        TriggerBank,
        SoundBankImport,
        WaveImport,
        BluetoothFirmware
    }
    enum State {
        Idle,
        Waiting,
        Sending,
        Repeating,
        Finishing,
        Done,
        Failed,
        NotNewer,
        Refused
    }
    enum Reason {
        NoReason,
        Cancelled,
        NoEngine,
        UnknownKind,
        NotAPath,
        NotALocalFile,
        SlotOutOfRange,
        FileMissing,
        NotAFile,
        FileEmpty,
        FileTooLarge,
        FileUnreadable,
        NoVersion,
        SameOrNewerInstalled,
        MemoryFull,
        DataRefused,
        Damaged,
        NotAcknowledged,
        Aborted,
        EngineSilent
    }

    // An Engine or a ZeltaConnect.
    property QtObject engine: null
    property int kind: FileTransfer.NoKind
    // A path or a file URL. The module gets the path without empty parts, "." and "..".
    property var source: ""
    // Of imports only: 0 to 65535.
    property real slot: -1
    // Of imported sound banks only; empty: the name of the file.
    property string name

    readonly property int state: job ? job.state : FileTransfer.Idle
    readonly property int reason: job ? job.reason : FileTransfer.NoReason
    readonly property string message: job ? job.message : ""
    readonly property real progress: job ? job.progress : 0
    readonly property real bytesSent: job ? job.bytesSent : 0
    readonly property real bytesTotal: job && !isNaN(job.size) ? job.size : 0
    readonly property real bytesPerSecond: job ? job.bytesPerSecond : 0
    readonly property real secondsLeft: job ? job.secondsLeft : -1
    readonly property int retransmissions: job ? job.retransmissions : 0
    // Of firmware: major number in the upper 16 bits, minor number in the lower; -1 if not known.
    readonly property int installedVersion: job ? job.installedVersion : -1
    readonly property int newVersion: job ? job.newVersion : -1
    readonly property bool active: state === FileTransfer.Waiting || state === FileTransfer.Sending
                                   || state === FileTransfer.Repeating || state === FileTransfer.Finishing

    signal succeeded()
    signal failed(int reason, string message)
    signal finished()

    property QtObject job: null

    // Returns true if the file will be sent, unless it turns out to be unusable. Otherwise it has failed already, or is on
    // its way.
    function start() {
        if (active)
            return false;
        var zelta = engine && engine.zelta !== undefined ? engine.zelta : engine;
        var place = Paths.read(source);
        var problem = problemOf(zelta, place);
        var queue = zelta ? Queues.queueOf(zelta) : null;
        var created = Queues.create("TransferJob.qml", queue || transfer, {
            queue: queue, kind: kind, path: place.path || "", slot: problem ? -1 : slot,
            name: name || Paths.nameOf(place.path || "")
        });
        take(created);
        if (problem) {
            created.end(FileTransfer.Failed, problem.reason, problem.message);
            return false;
        }
        created.state = FileTransfer.Waiting;
        queue.add(created);
        return true;
    }

    // Takes a file out of the queue. Returns false if it is not there: it has ended, or the module has it already and cannot
    // stop it.
    function cancel() {
        if (!active)
            return false;
        if (job.queue.remove(job))
            return true;
        job.message = "The file is on its way and cannot be stopped.";
        return false;
    }

    function take(created) {
        release();
        job = created;
        job.ended.connect(reportEnd);
    }
    function release() {
        if (!job)
            return;
        job.ended.disconnect(reportEnd);
        job.isWanted = false;
        if (!active)
            job.destroy();
    }
    function reportEnd() {
        if (state === FileTransfer.Done)
            succeeded();
        else if (state !== FileTransfer.Idle)
            failed(reason, message);
        finished();
    }

    function problemOf(zelta, place) {
        if (!zelta)
            return { reason: FileTransfer.NoEngine, message: "There is no engine to send to." };
        var chosen = Kinds.of(kind);
        if (!chosen)
            return { reason: FileTransfer.UnknownKind, message: "There is no kind %1 of files.".arg(kind) };
        if (place.other)
            return { reason: FileTransfer.NotALocalFile,
                     message: "The source \"%1\" is not a file of this device.".arg(source) };
        if (!place.path)
            return { reason: FileTransfer.NotAPath,
                     message: "The source \"%1\" is neither an absolute path nor a file URL.".arg(source) };
        if (chosen.slotted && !(Number.isInteger(slot) && slot >= 0 && slot <= Kinds.largestSlot))
            return { reason: FileTransfer.SlotOutOfRange,
                     message: "A %1 needs a slot from 0 to %2, not %3.".arg(chosen.noun).arg(Kinds.largestSlot)
                              .arg(slot) };
        if (!chosen.slotted && slot !== -1)
            return { reason: FileTransfer.SlotOutOfRange,
                     message: "There are no slots for a file of kind \"%1\".".arg(chosen.noun) };
        return null;
    }

    // A file that is on its way is sent to its end, so that the queue knows when the next one may begin.
    Component.onDestruction: {
        cancel();
        release();
    }
}
