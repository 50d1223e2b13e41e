import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0

// A case with one transfer to a module that the test plays.
TestCase {
    id: testCase

    readonly property int patience: 20000
    property FakeZelta zelta: null
    property FileTransfer transfer: null
    property var failures: []

    readonly property Component zeltaComponent: Component {
        FakeZelta {}
    }
    Component {
        id: transferComponent
        FileTransfer {
            engine: testCase.zelta
            kind: FileTransfer.SoundBank
            source: files.bank
            onFailed: testCase.failures.push(reason)
        }
    }

    function init() {
        zelta = createTemporaryObject(zeltaComponent, testCase);
        transfer = another({});
        failures = [];
    }
    function another(properties) {
        return createTemporaryObject(transferComponent, testCase, properties);
    }
    function queueOf(started) {
        return started.job.queue;
    }
    // Starts a transfer and waits until the module has the file.
    function begin(started, times) {
        var calls = zelta.sent.length;
        verify(started.start());
        compare(started.state, FileTransfer.Waiting);
        setTimes(started, times || { quietMs: 100000, versionMs: 100000, answerMs: 100000 });
        tryVerify(function() { return zelta.sent.length === calls + 1; }, patience);
    }
    function setTimes(started, times) {
        for (var name in times)
            queueOf(started)[name] = times[name];
    }
    function end(started, state, reason) {
        tryVerify(function() { return !started.active; }, patience);
        compare([started.state, started.reason], [state, reason]);
        verify(/^[A-Z\/].*\.$/.test(started.message), started.message);
    }
}
