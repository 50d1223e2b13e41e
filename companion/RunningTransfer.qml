import QtQml 2.12
import "transferkinds.js" as Kinds

// The file that the module is sending. Determines how it ends from the module's signals and the engine's answers.
//
// The module's signals alone are not enough: some failures have none, and an import whose end was not acknowledged completes
// like a successful one. A file counts as sent only if the engine has acknowledged its end without an error.
QtObject {
    id: transfer
    property QtObject queue: null
    property QtObject zelta: null
    property QtObject job: null
    readonly property var kind: Kinds.of(job.kind)
    readonly property bool isSizeKnown: !isNaN(job.size)

    // Tags of the engine's answers.
    readonly property int endAnswer: 0x4445 // DE
    readonly property int dataAnswer: 0x4443 // DC
    readonly property int engineVersionAnswer: 0x564e // VN
    readonly property int triggerVersionAnswer: 0x5456 // TV
    readonly property var otherQueryAnswers: [0x534e, 0x544e, 0x484c] // SN, TN, HL

    // The module's pause before it sends again.
    readonly property int repeatMs: 4000
    readonly property int publishMs: 50
    readonly property int mostUnansweredProbes: 2

    property real calledAt: 0
    property real begunAt: 0
    property real allSentAt: 0
    property real endAt: 0

    property bool isOver: false
    property bool isDraining: false
    property bool isBegun: false
    property bool isAllSent: false
    property bool isVersionKnown: false
    property bool isInstalled: false
    property bool isEndSeen: false
    property int endStatus: 0
    property int refusal: 0
    property int memoryFull: 0
    // An answer to a query arrived while the file was on its way. It can have ended the module's wait for the end.
    property bool isWaitDisturbed: false
    property bool isCompleted: false
    property int completedStatus: 0
    property int unansweredProbes: 0

    // Elapsed time; the largest value if the clock was set back.
    function since(time) {
        var elapsed = Date.now() - time;
        return elapsed < 0 ? Infinity : elapsed;
    }

    function start() {
        connectAll(true);
        calledAt = Date.now();
        var values = [job.path];
        if (kind.named)
            values.push(job.name);
        if (kind.slotted)
            values.push(job.slot);
        expect(kind.firmware ? queue.versionMs : queue.quietMs);
        zelta[kind.method].apply(zelta, values);
    }

    function connectAll(on) {
        var wires = [[zelta.udpPacketArrived, takeAnswer]];
        switch (job.kind) {
        case FileTransfer.EngineFirmware:
            wires.push([zelta.intZeltaFirmwareUpdateStarted, takeStart], [zelta.updateZeltaFwComplete, takeInstalled],
                       [zelta.intZeltaFirmwareUpdateFinished, takeFirmwareEnd]);
            break;
        case FileTransfer.TriggerFirmware:
            wires.push([zelta.intTriggerFirmwareUpdateStarted, takeStart],
                       [zelta.intTriggerFirmwareUpdateFinished, takeFirmwareEnd]);
            break;
        case FileTransfer.SoundBank:
            wires.push([zelta.soundProgressChanged, takeSoundBankProgress],
                       [zelta.soundbankTransferComplete, takeSoundBankEnd]);
            break;
        case FileTransfer.TriggerBank:
            wires.push([zelta.triggerProgressChanged, takeTriggerBankProgress],
                       [zelta.triggerbankTransferComplete, complete]);
            break;
        case FileTransfer.BluetoothFirmware:
            wires.push([zelta.btfwProgressChanged, takePacket], [zelta.bluetoothTransferComplete, complete]);
            break;
        default:
            wires.push([zelta.waveTransferProgress, takeImportProgress], [zelta.waveTransferComplete, takeImportEnd]);
        }
        wires.forEach(function(wire) {
            if (on)
                wire[0].connect(wire[1]);
            else
                wire[0].disconnect(wire[1]);
        });
    }

    // Progress

    function takeSoundBankProgress() {
        takeFraction(zelta.soundBankProgress);
    }
    function takeTriggerBankProgress() {
        takeFraction(zelta.triggerBankProgress);
    }
    function takeImportProgress(slot, fraction) {
        if (slot === job.slot)
            takeFraction(fraction);
    }
    // Beyond 1 the engine has requested what is not there, and the module aborts.
    function takeFraction(fraction) {
        takeProgress(Math.min(1, fraction), fraction === 1);
    }

    // The module reports how much of the set has been sent, once for each packet. The packets that it reports before the
    // pause of a resend still belong to the old position.
    property real packetBytes: 0
    property real resumeBytes: -1
    function takePacket() {
        if (resumeBytes >= 0 && since(repeatAt) > repeatMs / 2) {
            packetBytes = resumeBytes;
            resumeBytes = -1;
        }
        packetBytes += kind.packetBytes;
        takeProgress(isSizeKnown ? Math.min(1, packetBytes / job.size) : 0, isSizeKnown && packetBytes >= job.size);
    }

    property real publishedAt: 0
    function takeProgress(fraction, allSent) {
        var now = Date.now();
        lastSign = now;
        if (isOver)
            return;
        // An end acknowledged while data is still being sent is not the end of this file, and an answer to a query did not
        // end the wait for it.
        isEndSeen = false;
        isWaitDisturbed = false;
        if (!isBegun) {
            isBegun = true;
            begunAt = now;
        }
        var isRepeating = job.state === FileTransfer.Repeating && since(repeatAt) < repeatMs / 2;
        var changed = allSent !== isAllSent || unansweredProbes > 0
                || job.state !== FileTransfer.Sending && !isRepeating;
        isAllSent = allSent;
        if (changed || fraction - job.progress >= 0.01 || Math.abs(now - publishedAt) >= publishMs) {
            publishedAt = now;
            publish(fraction, now - begunAt);
        }
        if (changed) {
            if (allSent)
                allSentAt = now;
            if (refusal === 0)
                job.state = allSent ? FileTransfer.Finishing : FileTransfer.Sending;
            expect(allSent || refusal !== 0 ? endMs() : queue.quietMs);
        }
    }
    function publish(fraction, elapsedMs) {
        job.progress = fraction;
        if (!isSizeKnown)
            return;
        job.bytesSent = Math.round(fraction * job.size);
        if (elapsedMs <= 0)
            return;
        job.bytesPerSecond = job.bytesSent * 1000 / elapsedMs;
        job.secondsLeft = fraction > 0 ? elapsedMs / 1000 * (1 - fraction) / fraction : -1;
    }

    // Firmware has no progress. It is estimated from the size and the module's pace.
    property real estimateFrom: 0
    property real estimateBytes: 0
    function usualMs() {
        return isSizeKnown ? Kinds.usualMs(kind, job.size - estimateBytes) : 0;
    }
    readonly property Timer estimate: Timer {
        interval: 250
        repeat: true
        onTriggered: {
            if (!transfer.isSizeKnown)
                return;
            var elapsed = Math.max(0, Date.now() - transfer.estimateFrom);
            var done = Math.min(0.99, elapsed / transfer.usualMs());
            var bytes = transfer.estimateBytes + done * (transfer.job.size - transfer.estimateBytes);
            transfer.publish(bytes / transfer.job.size, Date.now() - transfer.begunAt);
        }
    }

    // Answers of the engine

    function takeAnswer(id, index, data) {
        switch (id) {
        case endAnswer:
            takeEnd(data);
            break;
        case dataAnswer:
            takeDataAnswer(data & 0xff, (data >> 8) * 0x10000 + index);
            break;
        case engineVersionAnswer:
        case triggerVersionAnswer:
            isWaitDisturbed = isBegun;
            if (kind.firmware && !isBegun && !isOver) {
                isVersionKnown = true;
                job.installedVersion = index << 16 | data;
                expect(queue.versionMs);
            }
            break;
        default:
            if (isBegun && otherQueryAnswers.indexOf(id) >= 0)
                isWaitDisturbed = true;
        }
    }
    function takeEnd(status) {
        // Without progress, only the time shows whether this can be the end of the file. A file that has become shorter ends
        // earlier, with an error.
        var isEarly = kind.firmware && isSizeKnown && since(calledAt) < Kinds.shortestMs(kind, job.size);
        if (isOver || kind.firmware && !isBegun || isEarly && status === 0)
            return;
        isEndSeen = true;
        endStatus = status;
        endAt = Date.now();
        if (isCompleted) {
            conclude();
        } else if (kind.firmware && !isEarly) {
            isAllSent = true;
            allSentAt = endAt;
            estimate.stop();
            publish(1, since(begunAt));
            job.state = FileTransfer.Finishing;
            expect(endMs());
        }
    }
    function takeDataAnswer(code, packet) {
        if (isOver || code === 0)
            return;
        if (code >= 0xe1 && code <= 0xe3)
            takeMemoryFull(code);
        else if ((code & 0xf0) === 0xe0)
            takeRefusal(code);
        else
            takeResendRequest(code, packet);
    }
    // The module aborts, unless it has sent the end packet already.
    function takeMemoryFull(code) {
        memoryFull = code;
        if (!isAllSent && (!kind.firmware || isSizeKnown && since(calledAt) < Kinds.shortestMs(kind, job.size))) {
            isDraining = true;
            finishMemoryFull();
        } else {
            expect(queue.quietMs);
        }
    }
    // The module sends the end packet at once, and waits for its acknowledgement.
    function takeRefusal(code) {
        if (isAllSent)
            return;
        refusal = code;
        estimate.stop();
        job.state = FileTransfer.Finishing;
        expect(endMs());
    }
    property real repeatAt: 0
    function takeResendRequest(code, packet) {
        // Undefined codes are requests, too, but the module does not count them.
        if (code === 0xbe)
            ++job.retransmissions;
        if (isAllSent || refusal !== 0)
            return;
        repeatAt = Date.now();
        resumeBytes = Math.min(packetBytes, packet * kind.packetBytes);
        if (!isBegun)
            return;
        job.state = FileTransfer.Repeating;
        if (kind.firmware) {
            estimateBytes = isSizeKnown ? Math.min(job.size, packet * kind.packetBytes) : 0;
            estimateFrom = repeatAt + repeatMs;
            repeatEnd.restart();
        }
        expect(kind.firmware ? repeatMs + usualMs() + queue.quietMs : queue.quietMs);
    }
    readonly property Timer repeatEnd: Timer {
        interval: transfer.repeatMs
        onTriggered: {
            if (transfer.job.state === FileTransfer.Repeating)
                transfer.job.state = FileTransfer.Sending;
        }
    }

    // Signals of the module

    function takeStart(currentVersion, newVersion) {
        if (isOver)
            return;
        isBegun = true;
        begunAt = estimateFrom = Date.now();
        job.installedVersion = currentVersion;
        job.newVersion = newVersion;
        job.state = FileTransfer.Sending;
        estimate.start();
        expect(usualMs() + queue.quietMs);
    }
    function takeInstalled() {
        isInstalled = true;
    }
    function takeFirmwareEnd() {
        complete(0);
    }
    function takeSoundBankEnd(status, retransmissions) {
        job.retransmissions = retransmissions;
        complete(status);
    }
    function takeImportEnd(slot, status) {
        if (slot === job.slot)
            complete(status);
    }
    // The module has ended the file and reports this status.
    function complete(status) {
        if (isDraining) {
            leave();
            return;
        }
        if (isOver)
            return;
        isCompleted = true;
        completedStatus = status;
        // An acknowledgement ends the module's wait at once. One that is as old as the wait arrived before it.
        if (isEndSeen && since(endAt) >= endWaitMs() - 1000)
            isEndSeen = false;
        conclude();
    }
    function endWaitMs() {
        return kind.endWaitMs + (isInstalled ? Infinity : kind.afterEndMs || 0);
    }
    // The module reports the end within this time.
    function endMs() {
        return kind.endWaitMs + (kind.afterEndMs || 0) + queue.quietMs;
    }

    function conclude() {
        if (refusal !== 0) {
            finish(FileTransfer.Refused, FileTransfer.DataRefused,
                   "The engine refused the data (" + hex(refusal) + ").");
        } else if (isEndSeen) {
            concludeAcknowledged();
        } else if (memoryFull !== 0) {
            finishMemoryFull();
        } else if (kind.slotted && !isAllSent) {
            finishAborted();
        } else if (isWaitDisturbed && completedStatus === 0 && !kind.engineFirmware && lateEnd.interval === 0) {
            awaitLateEnd();
        } else {
            finish(FileTransfer.Failed, FileTransfer.NotAcknowledged, "The engine did not acknowledge the end.");
        }
    }
    function concludeAcknowledged() {
        var status = endStatus !== 0 ? endStatus : completedStatus;
        if (status !== 0)
            finish(FileTransfer.Failed, FileTransfer.Damaged,
                   "Checksum error: the file did not arrive whole (" + hex(status) + ").");
        else
            finish(FileTransfer.Done, FileTransfer.NoReason, "The engine has the file.");
    }
    // The answer to another query ended the module's wait. The engine may still acknowledge the file.
    function awaitLateEnd() {
        var waited = isAllSent ? since(allSentAt) : 0;
        lateEnd.interval = Math.max(1, kind.endWaitMs - waited);
        lateEnd.start();
        quiet.stop();
    }
    readonly property Timer lateEnd: Timer {
        interval: 0
        onTriggered: transfer.conclude()
    }

    // The module performs no task any more, and has not reported an end.
    function moduleIsIdle() {
        if (isOver || isCompleted)
            return;
        if (memoryFull !== 0)
            finishMemoryFull();
        else if (isBegun)
            finishAborted();
        else if (!kind.firmware)
            finish(FileTransfer.Failed, FileTransfer.FileUnreadable, "The module could not open the file.");
        else if (isVersionKnown)
            finish(FileTransfer.NotNewer, FileTransfer.SameOrNewerInstalled,
                   "Version " + versionText(job.installedVersion) + ", which is installed, is the same or newer.");
        else
            finish(FileTransfer.Failed, FileTransfer.NoVersion, "The file has no firmware version.");
    }
    function finishMemoryFull() {
        finish(FileTransfer.Refused, FileTransfer.MemoryFull, "The engine's memory is full (" + hex(memoryFull) + ").");
    }
    function finishAborted() {
        finish(FileTransfer.Failed, FileTransfer.Aborted,
               "The transfer was aborted: the engine requested data beyond the end, or the file could not be read.");
    }
    function hex(number) {
        return "0x" + ("0" + number.toString(16)).slice(number > 0xff ? 1 : -2);
    }
    function versionText(version) {
        var minor = version & 0xffff;
        return (version >> 16) + "." + (minor < 10 ? "0" : "") + minor;
    }

    // Silence

    property real lastSign: 0
    property real expectedMs: 0
    // Something should happen within this time.
    function expect(ms) {
        lastSign = Date.now();
        expectedMs = ms;
        unansweredProbes = 0;
        quiet.interval = ms;
        quiet.restart();
    }
    readonly property Timer quiet: Timer {
        onTriggered: {
            var left = transfer.lastSign + transfer.expectedMs - Date.now();
            // Progress only stores its time. The clock may have been set.
            if (left > 0 && left < transfer.expectedMs) {
                interval = left;
                restart();
            } else if (transfer.isDraining) {
                transfer.leave();
            } else {
                transfer.probeAgain();
            }
        }
    }
    function probeAgain() {
        if (unansweredProbes >= mostUnansweredProbes && mayGiveUp()) {
            if (memoryFull !== 0)
                finishMemoryFull();
            else
                finish(FileTransfer.Failed, FileTransfer.EngineSilent,
                       isBegun ? "The engine has stopped answering." : "The engine does not answer.");
            return;
        }
        // The module waits for one probe after the other.
        quiet.interval = queue.answerMs;
        lastSign = Date.now();
        expectedMs = queue.answerMs;
        quiet.restart();
        // A probe or its answer may be lost.
        if (unansweredProbes < mostUnansweredProbes) {
            ++unansweredProbes;
            queue.probe();
        }
    }
    // Probes stay unanswered while the module is sending firmware, or waiting for the end of a file.
    function mayGiveUp() {
        if (isAllSent)
            return since(allSentAt) > endMs();
        return !kind.firmware || !isBegun || isSizeKnown && since(estimateFrom) > 3 * usualMs() + 60000;
    }

    function finish(state, reason, message) {
        isOver = true;
        quiet.stop();
        lateEnd.stop();
        estimate.stop();
        repeatEnd.stop();
        queue.finish(job, state, reason, message);
        if (isDraining) {
            lastSign = Date.now();
            expectedMs = queue.holdMs;
            quiet.interval = queue.holdMs;
            quiet.restart();
        } else {
            leave();
        }
    }
    // The next file may begin.
    function leave() {
        connectAll(false);
        queue.release(transfer);
    }
}
