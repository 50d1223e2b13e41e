import QtQml 2.12
import "transferkinds.js" as Kinds
import "transferqueues.js" as Queues

// The files for one ZeltaConnect object. The module gets one file at a time, so that each answer of the engine belongs to
// that file.
//
// The module emits nothing when it skips a file. The queue therefore requests the pedal's value: the module performs this
// request (a probe) behind the file, so its answer shows that the file's task is over.
QtObject {
    id: queue
    property QtObject zelta: null

    // Longer than the 20 s that the module waits for an answer before it performs the next task.
    property int answerMs: 21000
    // After "memory full" a new task could withdraw the abort that the module has not noticed yet.
    property int holdMs: 5000
    // Answers that arrive after this time are not expected any more.
    property int staleMs: 60000
    // Given to each transfer.
    property int quietMs: 6000
    property int versionMs: 1000

    property var waiting: []
    // The transfer that the module performs.
    property QtObject running: null

    // Probes of this transfer and of earlier ones that were not answered.
    property int probes: 0
    property int staleProbes: 0
    property real lastProbe: 0
    property bool isFlushing: false

    function add(job) {
        waiting.push(job);
        var check = Queues.create("FileCheck.qml", queue, { path: job.path });
        check.answered.connect(function(size) {
            check.destroy();
            if (job.state === FileTransfer.Waiting)
                queue.acceptSize(job, size);
        });
    }

    // Returns false if the job is not waiting.
    function remove(job) {
        var at = waiting.indexOf(job);
        if (at < 0)
            return false;
        waiting.splice(at, 1);
        end(job, FileTransfer.Idle, FileTransfer.Cancelled, "The file was removed before it began.");
        // The file behind it may have been checked already.
        Qt.callLater(advance);
        return true;
    }

    function acceptSize(job, size) {
        var failure = null;
        if (size < 0 && zelta.checkBtFw([job.path]) !== 0)
            failure = { reason: FileTransfer.FileMissing, message: "There is no file " + job.path + "." };
        else if (size < 0)
            failure = { reason: FileTransfer.NotAFile, message: job.path + " is not a file that can be read." };
        else if (size === 0)
            failure = { reason: FileTransfer.FileEmpty, message: "The file " + job.path + " is empty." };
        else if (size > Kinds.largestSize)
            failure = { reason: FileTransfer.FileTooLarge, message: "The file " + job.path + " is 4 GiB or larger." };
        if (failure) {
            waiting.splice(waiting.indexOf(job), 1);
            end(job, FileTransfer.Failed, failure.reason, failure.message);
        } else {
            job.size = size;
            job.isChecked = true;
        }
        advance();
    }

    function end(job, state, reason, message) {
        job.end(state, reason, message);
        if (!job.isWanted)
            job.destroy();
    }

    // Begins the next file when nothing stands against it.
    function advance() {
        if (running || isFlushing || waiting.length === 0 || !waiting[0].isChecked)
            return;
        if (Date.now() - lastProbe > staleMs)
            staleProbes = 0;
        if (staleProbes > 0)
            flush();
        else
            begin();
    }
    function begin() {
        var job = waiting.shift();
        probes = 0;
        running = Queues.create("RunningTransfer.qml", queue, { queue: queue, zelta: zelta, job: job });
        running.start();
    }
    // For RunningTransfer: the outcome, and when the next file may begin.
    function finish(job, state, reason, message) {
        staleProbes += probes;
        probes = 0;
        end(job, state, reason, message);
    }
    function release(transfer) {
        if (transfer !== running)
            return;
        running = null;
        transfer.destroy();
        Qt.callLater(advance);
    }

    // Probes that were not answered may still be in the module's queue, or be answered late. They must not be mistaken for
    // those of the next file, so one more is sent and answered first.
    function flush() {
        isFlushing = true;
        flushTimer.interval = answerMs * (staleProbes + 1);
        flushTimer.restart();
        probe();
    }
    function endFlush() {
        isFlushing = false;
        flushTimer.stop();
        if (waiting.length > 0 && waiting[0].isChecked)
            begin();
        else
            advance();
    }
    readonly property Timer flushTimer: Timer {
        onTriggered: {
            queue.staleProbes += queue.probes;
            queue.endFlush();
        }
    }

    function probe() {
        ++probes;
        lastProbe = Date.now();
        zelta.requestHHRawValue();
    }
    // An answer proves that the module is idle if earlier probes cannot have caused it.
    function takeProbeAnswer() {
        if (probes === 0) {
            staleProbes = Math.max(0, staleProbes - 1);
        } else if (staleProbes > 0) {
            --staleProbes;
            probe();
        } else {
            --probes;
            if (isFlushing) {
                staleProbes = probes;
                probes = 0;
                endFlush();
            } else if (running) {
                running.moduleIsIdle();
            }
        }
    }
    Component.onCompleted: zelta.hihatRawValueChanged.connect(takeProbeAnswer)
}
