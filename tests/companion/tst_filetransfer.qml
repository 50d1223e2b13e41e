import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0

// How FileTransfer handles bad input, and late, missing and misleading answers. Its time-outs are shortened.
TransferCase {
    name: "FileTransfer"

    function test_badInput_data() {
        return [
            { tag: "no engine", set: { engine: null }, reason: FileTransfer.NoEngine },
            { tag: "no kind", set: { kind: FileTransfer.NoKind }, reason: FileTransfer.UnknownKind },
            { tag: "kind that does not exist", set: { kind: 99 }, reason: FileTransfer.UnknownKind },
            { tag: "negative kind", set: { kind: -1 }, reason: FileTransfer.UnknownKind },
            { tag: "missing file", set: { source: "/missing/kit.bin" }, reason: FileTransfer.FileMissing },
            { tag: "missing file in a folder", set: { source: files.folder + "/missing.bin" },
              reason: FileTransfer.FileMissing },
            { tag: "folder", set: { source: files.folder }, reason: FileTransfer.NotAFile },
            { tag: "root folder", set: { source: "/" }, reason: FileTransfer.NotAFile },
            { tag: "file with a slash", set: { source: files.bank + "/" }, reason: FileTransfer.NotAFile },
            { tag: "file as a folder", set: { source: files.bank + "/." }, reason: FileTransfer.NotAFile },
            { tag: "folder with a slash", set: { source: files.folder + "/" }, reason: FileTransfer.NotAFile },
            { tag: "folder above", set: { source: files.folder + "/.." }, reason: FileTransfer.NotAFile },
            { tag: "folder in one with special characters", set: { source: files.deepFolder }, reason: FileTransfer.NotAFile },
            { tag: "no file in a folder with special characters", set: { source: files.deepFolder + "/../none.bin" },
              reason: FileTransfer.NotAFile },
            { tag: "device", set: { source: "/dev/zero" }, reason: FileTransfer.NotAFile },
            { tag: "pipe", set: { source: files.pipe }, reason: FileTransfer.NotAFile },
            { tag: "empty file", set: { source: files.empty }, reason: FileTransfer.FileEmpty },
            { tag: "file of 4 GiB", set: { source: files.huge }, reason: FileTransfer.FileTooLarge },
            { tag: "web address", set: { source: "https://example.com/kit.bin" }, reason: FileTransfer.NotALocalFile },
            { tag: "resource", set: { source: Qt.resolvedUrl("qrc:/kit.bin") }, reason: FileTransfer.NotALocalFile },
            { tag: "file of another host", set: { source: "file://server/kit.bin" }, reason: FileTransfer.NotALocalFile },
            { tag: "relative path", set: { source: "kit.bin" }, reason: FileTransfer.NotAPath },
            { tag: "nothing", set: { source: "" }, reason: FileTransfer.NotAPath },
            { tag: "undefined", set: { source: undefined }, reason: FileTransfer.NotAPath },
            { tag: "null", set: { source: null }, reason: FileTransfer.NotAPath },
            { tag: "path with a NUL", set: { source: "/a\u0000b" }, reason: FileTransfer.NotAPath },
            { tag: "URL with a NUL", set: { source: "file:///a%00b" }, reason: FileTransfer.NotAPath },
            { tag: "number", set: { source: 7 }, reason: FileTransfer.NotAPath },
            { tag: "bad percent encoding", set: { source: "file:///a%zz.bin" }, reason: FileTransfer.NotAPath },
            { tag: "slot for a sound bank", set: { slot: 1 }, reason: FileTransfer.SlotOutOfRange },
            { tag: "slot for a trigger bank", set: { kind: FileTransfer.TriggerBank, slot: 0 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "slot for engine firmware", set: { kind: FileTransfer.EngineFirmware, slot: 0 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "slot for board firmware", set: { kind: FileTransfer.TriggerFirmware, slot: 0 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "slot for bluetooth firmware", set: { kind: FileTransfer.BluetoothFirmware, slot: 0 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "bank without a slot", set: { kind: FileTransfer.SoundBankImport }, reason: FileTransfer.SlotOutOfRange },
            { tag: "sample without a slot", set: { kind: FileTransfer.WaveImport }, reason: FileTransfer.SlotOutOfRange },
            { tag: "sample, negative slot", set: { kind: FileTransfer.WaveImport, slot: -2 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "sample, slot too large", set: { kind: FileTransfer.WaveImport, slot: 65536 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "sample, half a slot", set: { kind: FileTransfer.WaveImport, slot: 1.5 },
              reason: FileTransfer.SlotOutOfRange },
            { tag: "sample, slot is not a number", set: { kind: FileTransfer.WaveImport, slot: NaN },
              reason: FileTransfer.SlotOutOfRange }
        ];
    }
    function test_badInput(row) {
        var bad = another(row.set);
        bad.start();
        end(bad, FileTransfer.Failed, row.reason);
        compare(failures, [row.reason]);
        compare(zelta.calls, []);
        // The screen goes on: the same object sends a good file.
        bad.engine = zelta;
        bad.kind = FileTransfer.SoundBank;
        bad.source = files.bank;
        bad.slot = -1;
        begin(bad);
        compare(zelta.calls, ["sendSoundBank " + files.bank]);
    }

    function test_sources_data() {
        return [
            { tag: "path", source: files.bank, path: files.bank },
            { tag: "URL", source: files.bankUrl, path: files.bank },
            { tag: "URL without a host", source: "file:" + files.bank, path: files.bank },
            { tag: "URL of this host", source: "file://localhost" + files.bank, path: files.bank },
            { tag: "upper case", source: "FILE://" + files.bank, path: files.bank },
            { tag: "path with special characters", source: files.odd, path: files.odd },
            { tag: "URL with special characters", source: files.oddUrl, path: files.odd },
            { tag: "doubled slashes", source: files.folder + "//bank.bin", path: files.bank },
            { tag: "the same folder", source: files.folder + "/./bank.bin", path: files.bank },
            { tag: "folder above", source: files.folder + "/sub/../bank.bin", path: files.bank },
            { tag: "above and down again", source: files.folder + "/../" + files.folderName + "/bank.bin", path: files.bank },
            { tag: "above the root", source: "/../.." + files.bank, path: files.bank },
            { tag: "URL of the folder above", source: "file://" + files.folder + "/sub/%2e%2E/bank.bin", path: files.bank },
            { tag: "name with two dots", source: files.dots, path: files.dots },
            { tag: "folder with special characters", source: files.deep, path: files.deep },
            { tag: "URL of a folder with special characters", source: files.deepUrl, path: files.deep }
        ];
    }
    function test_sources(row) {
        transfer.source = row.source;
        begin(transfer);
        compare(zelta.calls, ["sendSoundBank " + row.path]);
        compare(transfer.bytesTotal, 5000);
    }

    function test_calls_data() {
        return [
            { tag: "engine firmware", kind: FileTransfer.EngineFirmware, slot: -1, call: "sendZeltaFirmware $" },
            { tag: "board firmware", kind: FileTransfer.TriggerFirmware, slot: -1, call: "sendTriggerFirmware $" },
            { tag: "sound bank", kind: FileTransfer.SoundBank, slot: -1, call: "sendSoundBank $" },
            { tag: "trigger bank", kind: FileTransfer.TriggerBank, slot: -1, call: "sendTriggerBank $" },
            { tag: "bank for a slot", kind: FileTransfer.SoundBankImport, slot: 0, name: "Kit", call: "sendImportSoundBank $ Kit 0" },
            { tag: "name of the file", kind: FileTransfer.SoundBankImport, slot: 9, call: "sendImportSoundBank $ bank.bin 9" },
            { tag: "sample", kind: FileTransfer.WaveImport, slot: 65535, call: "sendImportWaveSample $ 65535" },
            { tag: "bluetooth", kind: FileTransfer.BluetoothFirmware, slot: -1, call: "sendBtFw $" }
        ];
    }
    function test_calls(row) {
        transfer.kind = row.kind;
        transfer.slot = row.slot;
        transfer.name = row.name || "";
        begin(transfer);
        compare(zelta.calls, [row.call.replace("$", files.bank)]);
    }

    function test_progress() {
        begin(transfer);
        compare(transfer.state, FileTransfer.Waiting);
        zelta.sendBankProgress(0.25);
        compare([transfer.state, transfer.progress, transfer.bytesSent], [FileTransfer.Sending, 0.25, 1250]);
        verify(!transfer.start());
        wait(20);
        zelta.sendBankProgress(0.5);
        verify(transfer.bytesPerSecond > 0 && transfer.secondsLeft > 0);
        zelta.answerData(0x00be);
        compare([transfer.state, transfer.retransmissions], [FileTransfer.Repeating, 1]);
        zelta.sendBankProgress(1);
        compare([transfer.state, transfer.progress], [FileTransfer.Finishing, 1]);
        zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(0, 1);
        end(transfer, FileTransfer.Done, FileTransfer.NoReason);
        compare([transfer.bytesSent, transfer.secondsLeft, transfer.retransmissions], [5000, 0, 1]);
        compare(failures, []);
        // Again with the same object.
        begin(transfer);
        compare([transfer.progress, transfer.retransmissions, transfer.reason], [0, 0, FileTransfer.NoReason]);
    }
    // The answer of the check is missing, for example because a drive does not answer.
    function test_sizeIsNotKnown() {
        verify(transfer.start());
        queueOf(transfer).acceptSize(transfer.job, NaN);
        compare(zelta.calls, ["sendSoundBank " + files.bank]);
        zelta.sendBankProgress(1);
        compare([transfer.state, transfer.progress, transfer.bytesTotal], [FileTransfer.Finishing, 1, 0]);
        zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(0, 0);
        compare(transfer.state, FileTransfer.Done);
    }

    // Acknowledgements of the end

    function test_statusAloneIsNotSuccess_data() {
        return [
            { tag: "sample", kind: FileTransfer.WaveImport, slot: 3 },
            { tag: "bank for a slot", kind: FileTransfer.SoundBankImport, slot: 3 },
            { tag: "sound bank", kind: FileTransfer.SoundBank, slot: -1 },
            { tag: "trigger bank", kind: FileTransfer.TriggerBank, slot: -1 },
            { tag: "bluetooth", kind: FileTransfer.BluetoothFirmware, slot: -1 },
            { tag: "board firmware", kind: FileTransfer.TriggerFirmware, slot: -1 },
            { tag: "engine firmware", kind: FileTransfer.EngineFirmware, slot: -1 }
        ];
    }
    function sendAll(row) {
        transfer.kind = row.kind;
        transfer.slot = row.slot;
        begin(transfer);
        switch (row.kind) {
        case FileTransfer.SoundBank:
            zelta.sendBankProgress(1);
            break;
        case FileTransfer.TriggerBank:
            zelta.sendTriggerProgress(1);
            break;
        case FileTransfer.BluetoothFirmware:
            for (var i = 0; i < 10; ++i)
                zelta.btfwProgressChanged();
            break;
        case FileTransfer.TriggerFirmware:
            zelta.intTriggerFirmwareUpdateStarted(1, 2);
            break;
        case FileTransfer.EngineFirmware:
            zelta.intZeltaFirmwareUpdateStarted(1, 2);
            break;
        default:
            zelta.waveTransferProgress(3, 1);
        }
    }
    function complete(row) {
        switch (row.kind) {
        case FileTransfer.SoundBank:
            zelta.soundbankTransferComplete(0, 0);
            break;
        case FileTransfer.TriggerBank:
            zelta.triggerbankTransferComplete(0);
            break;
        case FileTransfer.BluetoothFirmware:
            zelta.bluetoothTransferComplete(0);
            break;
        case FileTransfer.TriggerFirmware:
            zelta.intTriggerFirmwareUpdateFinished();
            break;
        case FileTransfer.EngineFirmware:
            zelta.updateZeltaFwComplete();
            zelta.intZeltaFirmwareUpdateFinished();
            break;
        default:
            zelta.waveTransferComplete(3, 0);
        }
    }
    function test_statusAloneIsNotSuccess(row) {
        sendAll(row);
        complete(row);
        end(transfer, FileTransfer.Failed, FileTransfer.NotAcknowledged);
    }
    // The answer to a query of the screen ends the module's wait with status 0. The engine acknowledges the end later.
    function test_lateAcknowledgement_data() {
        return test_statusAloneIsNotSuccess_data().slice(0, 6);
    }
    function test_lateAcknowledgement(row) {
        sendAll(row);
        zelta.answerVersion(0x534e);
        complete(row);
        compare(transfer.state, row.kind === FileTransfer.TriggerFirmware ? FileTransfer.Sending : FileTransfer.Finishing);
        wait(50);
        verify(transfer.active);
        zelta.acknowledgeEnd(0);
        end(transfer, FileTransfer.Done, FileTransfer.NoReason);
    }
    function test_lateError() {
        sendAll({ kind: FileTransfer.WaveImport, slot: 3 });
        zelta.answer();
        zelta.waveTransferComplete(3, 0);
        verify(transfer.active);
        zelta.acknowledgeEnd(1);
        end(transfer, FileTransfer.Failed, FileTransfer.Damaged);
    }
    function test_acknowledgementDuringTheDataIsNotTheEnd() {
        transfer.kind = FileTransfer.WaveImport;
        transfer.slot = 3;
        begin(transfer);
        zelta.waveTransferProgress(3, 0.5);
        zelta.acknowledgeEnd(0);
        zelta.waveTransferProgress(3, 1);
        zelta.waveTransferComplete(3, 0);
        end(transfer, FileTransfer.Failed, FileTransfer.NotAcknowledged);
    }
    // It takes longer to send the file than it took the acknowledgement to arrive.
    function test_earlyAcknowledgementOfFirmware() {
        transfer.kind = FileTransfer.TriggerFirmware;
        transfer.source = files.firmware;
        begin(transfer);
        zelta.intTriggerFirmwareUpdateStarted(1, 2);
        zelta.acknowledgeEnd(0);
        compare(transfer.state, FileTransfer.Sending);
        zelta.intTriggerFirmwareUpdateFinished();
        end(transfer, FileTransfer.Failed, FileTransfer.NotAcknowledged);
    }
    // A file that becomes shorter is sent earlier, and the engine reports an error.
    function test_earlyErrorOfFirmware_data() {
        return [
            { tag: "then the end", acknowledged: false, state: FileTransfer.Failed, reason: FileTransfer.Damaged },
            { tag: "then an acknowledgement", acknowledged: true, state: FileTransfer.Done, reason: FileTransfer.NoReason }
        ];
    }
    function test_earlyErrorOfFirmware(row) {
        transfer.kind = FileTransfer.TriggerFirmware;
        transfer.source = row.acknowledged ? files.bank : files.firmware;
        begin(transfer);
        zelta.intTriggerFirmwareUpdateStarted(1, 2);
        zelta.acknowledgeEnd(1);
        if (row.acknowledged)
            zelta.acknowledgeEnd(0);
        zelta.intTriggerFirmwareUpdateFinished();
        end(transfer, row.state, row.reason);
    }
    function test_signalsForOtherSlotsAreIgnored() {
        transfer.kind = FileTransfer.WaveImport;
        transfer.slot = 3;
        begin(transfer);
        zelta.waveTransferProgress(4, 1);
        compare(transfer.state, FileTransfer.Waiting);
        zelta.waveTransferComplete(4, 0);
        compare(transfer.state, FileTransfer.Waiting);
    }

    // Refusals

    function test_memoryFullAfterTheEnd_data() {
        return [
            { tag: "then acknowledged", acknowledged: true, state: FileTransfer.Done, reason: FileTransfer.NoReason },
            { tag: "nothing more", acknowledged: false, state: FileTransfer.Refused, reason: FileTransfer.MemoryFull }
        ];
    }
    function test_memoryFullAfterTheEnd(row) {
        begin(transfer);
        zelta.sendBankProgress(1);
        zelta.answerData(0xe1);
        compare(transfer.state, FileTransfer.Finishing);
        if (row.acknowledged)
            zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(row.acknowledged ? 0 : 255, 0);
        end(transfer, row.state, row.reason);
    }
    function test_refusalAfterTheEnd() {
        begin(transfer);
        zelta.sendBankProgress(1);
        zelta.answerData(0xe4);
        zelta.acknowledgeEnd(0);
        zelta.soundbankTransferComplete(0, 0);
        end(transfer, FileTransfer.Done, FileTransfer.NoReason);
    }
    function test_importThatIsAborted() {
        transfer.kind = FileTransfer.WaveImport;
        transfer.slot = 3;
        begin(transfer);
        zelta.waveTransferProgress(3, 0.5);
        zelta.waveTransferComplete(3, 0);
        end(transfer, FileTransfer.Failed, FileTransfer.Aborted);
    }

    // Silence

    readonly property var shortTimes: ({ quietMs: 20, versionMs: 20, answerMs: 60 })

    function test_probeIsRepeatedIfItsAnswerIsLost() {
        begin(transfer, shortTimes);
        zelta.answeredProbe = 2;
        end(transfer, FileTransfer.Failed, FileTransfer.FileUnreadable);
        compare(zelta.probes, 2);
    }
    function test_waitsForTheModulesTimeoutBeforeAProbe() {
        begin(transfer, { quietMs: 20, answerMs: 100000 });
        tryVerify(function() { return zelta.probes === 1; }, patience);
        wait(100);
        compare(zelta.probes, 1);
    }
    function test_absentEngine() {
        begin(transfer, shortTimes);
        end(transfer, FileTransfer.Failed, FileTransfer.EngineSilent);
        compare(transfer.message, "The engine does not answer.");
    }
    function test_engineFallsSilent() {
        begin(transfer, shortTimes);
        zelta.sendBankProgress(0.5);
        end(transfer, FileTransfer.Failed, FileTransfer.EngineSilent);
        compare(transfer.message, "The engine has stopped answering.");
    }
    function test_abortedTransfer() {
        begin(transfer);
        setTimes(transfer, shortTimes);
        zelta.answeredProbe = 1;
        zelta.sendBankProgress(0.5);
        end(transfer, FileTransfer.Failed, FileTransfer.Aborted);
    }
    // The engine may take ten minutes to acknowledge a sound bank.
    function test_longEndOfASoundBank() {
        begin(transfer);
        setTimes(transfer, shortTimes);
        zelta.sendBankProgress(1);
        wait(500);
        compare([transfer.state, zelta.probes], [FileTransfer.Finishing, 0]);
        // The last packets are sent no more.
        zelta.answerData(0xbe);
        wait(300);
        compare([transfer.state, zelta.probes], [FileTransfer.Finishing, 0]);
    }
    // Sending it takes longer than all time-outs for an engine that does not answer.
    function test_largeFirmwareIsNotGivenUp_data() {
        return [
            { tag: "board", kind: FileTransfer.TriggerFirmware },
            { tag: "engine", kind: FileTransfer.EngineFirmware }
        ];
    }
    function test_largeFirmwareIsNotGivenUp(row) {
        transfer.kind = row.kind;
        transfer.source = files.firmware;
        begin(transfer);
        setTimes(transfer, shortTimes);
        if (row.kind === FileTransfer.TriggerFirmware)
            zelta.intTriggerFirmwareUpdateStarted(0x10004, 0x10005);
        else
            zelta.intZeltaFirmwareUpdateStarted(0x10004, 0x10005);
        compare([transfer.installedVersion, transfer.newVersion], [0x10004, 0x10005]);
        wait(1000);
        compare([transfer.state, zelta.probes], [FileTransfer.Sending, 0]);
        verify(transfer.progress > 0 && transfer.progress < 0.1, transfer.progress);
        verify(transfer.secondsLeft > 60, transfer.secondsLeft);
    }
    function test_firmwareThatIsNotNewer() {
        transfer.kind = FileTransfer.TriggerFirmware;
        begin(transfer);
        setTimes(transfer, shortTimes);
        zelta.answeredProbe = 1;
        zelta.answerVersion(0x5456);
        end(transfer, FileTransfer.NotNewer, FileTransfer.SameOrNewerInstalled);
        compare(transfer.message, "Version 1.04, which is installed, is the same or newer.");
        compare(transfer.installedVersion, 0x10004);
    }
    function test_firmwareWithoutAVersion() {
        transfer.kind = FileTransfer.EngineFirmware;
        zelta.answeredProbe = 1;
        begin(transfer, shortTimes);
        end(transfer, FileTransfer.Failed, FileTransfer.NoVersion);
    }
}
