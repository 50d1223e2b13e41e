import QtQuick 2.12
import QtTest 1.2
import "qrc:/transfers/device"
import "qrc:/transfers/settings"

// What the demo makes of answers that are late or never come. The waits are those of the module, made short.
TestCase {
    name: "Transfers"

    readonly property int soundBank: 0
    readonly property int engineFirmware: 5
    readonly property int patience: 20000

    function init() {
        Transfers.quietTime = 20;
        Transfers.answerTime = 60;
        Transfers.staleProbes = 0;
        Device.requests = [];
        Device.answeredQuestion = 0;
    }
    function cleanup() {
        Transfers.finish(false, "the test is over");
    }

    function test_asksAgainWhenAnAnswerIsLost() {
        Transfers.send(soundBank, "/media/bank.bin", 0);
        compare(Device.requests, ["sendSoundBank"]);
        Device.answeredQuestion = 3;
        tryCompare(Transfers, "busy", false, patience);
        compare(Device.questions, 3);
        compare(Transfers.words, "Sound bank: nothing was sent, the file cannot be read");
    }

    function test_asksNoSoonerThanTheModuleGivesUp() {
        Transfers.answerTime = 100000;
        Transfers.send(soundBank, "/media/bank.bin", 0);
        tryVerify(function() { return Device.questions > 0; }, patience);
        verify(Transfers.quiet.interval === 100000 && Transfers.quiet.running);
        Device.module.soundProgressChanged();
        compare(Transfers.quiet.interval, 20);
    }

    // A question that was never answered does not swallow an answer to the next transfer's.
    function test_forgetsWhatAnAbsentEngineWasAsked() {
        Transfers.send(soundBank, "/media/bank.bin", 0);
        tryCompare(Transfers, "busy", false, patience);
        compare(Transfers.words, "Sound bank: the engine does not answer");
        compare(Device.questions, 6);

        Device.answeredQuestion = 7;
        Transfers.send(soundBank, "/media/bank.bin", 0);
        tryCompare(Transfers, "busy", false, patience);
        compare(Device.questions, 7);
        compare(Transfers.words, "Sound bank: nothing was sent, the file cannot be read");
    }

    // Broken off for want of memory, with the question about the firmware still in the module's queue.
    function breakOffFirmware() {
        Transfers.send(engineFirmware, "/media/engine.bin", 0);
        compare(Device.questions, 1);
        Device.answered(0x4443, 0, 0xe1);
        compare(Transfers.words, "Engine firmware: the engine's memory is full");
    }

    function test_answersAboutTheTransferBeforeEndNothing() {
        Transfers.quietTime = 100000;
        Transfers.answerTime = 100000;
        breakOffFirmware();
        Transfers.send(engineFirmware, "/media/engine.bin", 0);
        Device.answer();
        verify(Transfers.busy);
        Device.answer();
        compare(Transfers.words, "Engine firmware: not sent, the file carries no firmware version");
    }

    function test_questionsAboutTheTransferBeforeAreForgotten() {
        Transfers.quietTime = 100000;
        breakOffFirmware();
        Transfers.send(engineFirmware, "/media/engine.bin", 0);
        compare(Transfers.staleProbes, 1);
        tryCompare(Transfers, "staleProbes", 0, patience);
        verify(Transfers.busy);
        Device.answer();
        compare(Transfers.words, "Engine firmware: not sent, the file carries no firmware version");
    }
}
