import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0

// How several FileTransfers share the queue of one module, and when the next file follows a file that failed.
TransferCase {
    id: testCase
    name: "TransferQueue"

    function test_filesAreSentOneAfterTheOther() {
        var second = another({ kind: FileTransfer.TriggerBank });
        var third = another({ kind: FileTransfer.WaveImport, slot: 3 });
        begin(transfer);
        verify(second.start());
        verify(third.start());
        wait(50);
        compare(zelta.calls.length, 1);
        zelta.sendBankProgress(1);
        zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(0, 0);
        compare(transfer.state, FileTransfer.Done);
        tryVerify(function() { return zelta.calls.length === 2; }, patience);
        compare([second.state, third.state], [FileTransfer.Waiting, FileTransfer.Waiting]);
        zelta.sendTriggerProgress(1);
        zelta.triggerbankTransferComplete(255);
        compare([second.state, second.reason], [FileTransfer.Failed, FileTransfer.NotAcknowledged]);
        tryVerify(function() { return zelta.calls.length === 3; }, patience);
        zelta.waveTransferProgress(3, 1);
        zelta.acknowledgeEnd(0);
        zelta.waveTransferComplete(3, 0);
        compare(third.state, FileTransfer.Done);
    }
    function test_cancelRemovesWhatHasNotBegun() {
        var second = another({ kind: FileTransfer.TriggerBank });
        begin(transfer);
        verify(second.start());
        verify(second.cancel());
        compare([second.state, second.reason], [FileTransfer.Idle, FileTransfer.Cancelled]);
        zelta.sendBankProgress(1);
        zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(0, 0);
        wait(50);
        compare(zelta.calls.length, 1);
        verify(!second.cancel());
        verify(second.start());
        tryVerify(function() { return zelta.calls.length === 2; }, patience);
    }
    function test_cancelledFileDoesNotHoldUpTheNext() {
        var second = another({ kind: FileTransfer.TriggerBank });
        verify(transfer.start());
        // Holds the queue until both files are checked.
        queueOf(transfer).isFlushing = true;
        verify(second.start());
        tryVerify(function() { return transfer.bytesTotal === 5000 && second.bytesTotal === 5000; }, patience);
        queueOf(transfer).isFlushing = false;
        compare(zelta.calls, []);
        verify(transfer.cancel());
        tryVerify(function() { return zelta.calls.length > 0; }, patience);
        compare(zelta.calls, ["sendTriggerBank " + files.bank]);
    }
    function test_cancelCannotStopWhatHasBegun() {
        begin(transfer);
        verify(!transfer.cancel());
        compare(transfer.message, "The file is on its way and cannot be stopped.");
        zelta.sendBankProgress(0.5);
        verify(!transfer.cancel());
        compare(transfer.state, FileTransfer.Sending);
    }
    function test_deletedTransferIsWatchedToItsEnd() {
        var second = another({ kind: FileTransfer.TriggerBank });
        var deleted = another({});
        begin(deleted);
        verify(second.start());
        deleted.destroy();
        wait(50);
        compare(zelta.calls.length, 1);
        zelta.sendBankProgress(1);
        zelta.soundbankTransferComplete(255, 0);
        tryVerify(function() { return zelta.calls.length === 2; }, patience);
        compare(failures, []);
    }
    function test_deletedTransferLeavesTheQueue() {
        var deleted = another({ kind: FileTransfer.TriggerBank });
        begin(transfer);
        verify(deleted.start());
        deleted.destroy();
        wait(50);
        zelta.sendBankProgress(1);
        zelta.soundbankTransferComplete(255, 0);
        wait(50);
        compare(zelta.calls.length, 1);
    }
    function test_badFileLeavesTheQueue() {
        var missing = another({ source: "/missing/a.bin" });
        var good = another({ kind: FileTransfer.TriggerBank });
        verify(missing.start());
        verify(good.start());
        end(missing, FileTransfer.Failed, FileTransfer.FileMissing);
        tryVerify(function() { return zelta.calls.length === 1; }, patience);
        compare(zelta.calls, ["sendTriggerBank " + files.bank]);
    }
    function test_enginesHaveQueuesOfTheirOwn() {
        var other = createTemporaryObject(zeltaComponent, testCase);
        var second = another({ engine: other });
        begin(transfer);
        verify(second.start());
        tryVerify(function() { return other.calls.length === 1; }, patience);
        compare(transfer.state, FileTransfer.Waiting);
    }
    function test_engineIsDeletedDuringATransfer() {
        var other = zeltaComponent.createObject(testCase);
        var second = another({ engine: other });
        verify(second.start());
        tryVerify(function() { return other.calls.length === 1; }, patience);
        other.sendBankProgress(0.5);
        other.destroy();
        wait(50);
        compare(second.active, false);
        verify(!second.start());
        compare(second.reason, FileTransfer.NoEngine);
    }

    // After a refusal

    // The module may notice "memory full" only after a pause of four seconds. A new task would withdraw it.
    function test_nextFileWaitsAfterMemoryFull() {
        var second = another({ kind: FileTransfer.TriggerBank });
        begin(transfer, { holdMs: 1000, quietMs: 100000 });
        verify(second.start());
        zelta.sendBankProgress(0.5);
        zelta.answerData(0xe2);
        compare([transfer.state, transfer.reason], [FileTransfer.Refused, FileTransfer.MemoryFull]);
        wait(600);
        var lastSignOfLife = Date.now();
        zelta.sendBankProgress(0.6);
        wait(600);
        // Unless this machine was too slow to look within the pause.
        if (Date.now() - lastSignOfLife < 1000) {
            compare(zelta.sent.length, 1);
            compare(transfer.state, FileTransfer.Refused);
        }
        tryVerify(function() { return zelta.sent.length === 2; }, patience);
    }

    // Answers to the probes of an earlier transfer

    // Ends a transfer with an unanswered probe in the module's queue.
    function abortWithProbe() {
        transfer.kind = FileTransfer.TriggerFirmware;
        begin(transfer, { quietMs: 20, versionMs: 20, answerMs: 100000, holdMs: 20 });
        tryVerify(function() { return zelta.probes === 1; }, patience);
        zelta.intTriggerFirmwareUpdateStarted(1, 2);
        zelta.acknowledgeEnd(0);
        zelta.intTriggerFirmwareUpdateFinished();
        compare(transfer.state, FileTransfer.Done);
    }
    function test_nextFileWaitsForTheAnswersToProbes() {
        abortWithProbe();
        transfer.kind = FileTransfer.SoundBank;
        verify(transfer.start());
        tryVerify(function() { return zelta.probes === 2; }, patience);
        zelta.answer();
        wait(50);
        compare(zelta.sent.length, 1);
        zelta.answer();
        tryVerify(function() { return zelta.sent.length === 2; }, patience);
    }
    function test_lostAnswersDelayTheNextFileOnly() {
        abortWithProbe();
        transfer.kind = FileTransfer.SoundBank;
        setTimes(transfer, { answerMs: 50 });
        verify(transfer.start());
        tryVerify(function() { return zelta.sent.length === 2; }, patience);
        // Late answers do not end the file that is on its way.
        setTimes(transfer, { quietMs: 20, answerMs: 100000 });
        var probes = zelta.probes;
        tryVerify(function() { return zelta.probes > probes; }, patience);
        zelta.answer();
        verify(transfer.active);
    }
    // The screen's own requests, before and during a transfer.
    function test_answersToTheScreenAreNotProbes() {
        begin(transfer);
        zelta.answer();
        compare(transfer.state, FileTransfer.Waiting);
        zelta.sendBankProgress(0.5);
        zelta.answer();
        compare(transfer.state, FileTransfer.Sending);
    }
}
