import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0

// What Engine reports about the connection.
TestCase {
    id: testCase
    name: "Engine"

    readonly property int patience: 20000
    readonly property string levelRequest: "IM 00030BB9633B0BB9621F0BB90600"
    readonly property string levels: "DR" + " 0000".repeat(18)
    readonly property string strike: "IM AC 9909 6426"
    property Engine subject: null
    property int restarts: 0

    Component {
        id: engineComponent
        Engine {
            onRestarted: ++testCase.restarts
        }
    }

    function init() {
        restarts = 0;
        subject = createTemporaryObject(engineComponent, testCase, { timeout: 1000, interval: 500 });
        verify(subject);
        verify(engine.attach(subject.zelta));
    }

    function test_beginsUnconnected() {
        compare([subject.connected, subject.restarts, subject.eventsPerSecond], [false, 0, 0]);
        compare(subject.lastKinds, []);
    }
    function test_anyEventConnects_data() {
        return [
            { tag: "levels", sent: levels, kind: "levels" },
            { tag: "note", sent: strike, kind: "note" },
            { tag: "pressure", sent: "IM AC A90A 7F31", kind: "pressure" },
            { tag: "position", sent: "IM AC B90B 4004", kind: "position" },
            { tag: "program", sent: "IM AC C90C 0005", kind: "program" },
            { tag: "beat", sent: "BT AC 0003 0000", kind: "beat" },
            { tag: "tempo", sent: "TM AC 0078 0000", kind: "tempo" },
            { tag: "switch", sent: "SW AC F1 0001", kind: "switch" },
            { tag: "pot", sent: "CO AC 0000 0001", kind: "pot" },
            { tag: "memory", sent: "FR AC 0001 0002", kind: "memory" },
            { tag: "version", sent: "SN AC 0001 0004", kind: "answer" }
        ];
    }
    function test_anyEventConnects(row) {
        verify(engine.send(row.sent));
        verify(subject.connected);
        compare(subject.silentFor, 0);
        tryVerify(function() { return subject.lastKinds.indexOf(row.kind) >= 0; }, patience);
        verify(subject.eventsPerSecond >= 1);
    }
    function test_kindsInTheirOrder() {
        verify(engine.send([strike, strike, strike, strike, "BT AC 0003 0000", "BT AC 0004 0000"].join("|")));
        tryVerify(function() { return subject.lastKinds.length > 0; }, patience);
        compare(subject.lastKinds.slice(0, 2), ["note", "beat"]);
        // They are forgotten after a second.
        tryCompare(subject, "lastKinds", [], patience);
        tryCompare(subject, "eventsPerSecond", 0, patience);
    }
    function test_silenceDisconnectsAndAsks() {
        verify(engine.send(strike));
        tryCompare(subject, "connected", false, patience);
        verify(subject.silentFor >= 1000);
        verify(engine.received().indexOf(levelRequest) >= 0);
        compare(restarts, 0);
        verify(engine.send(levels));
        compare([subject.connected, subject.restarts, restarts], [true, 1, 1]);
    }
    function test_shortSilenceIsNoRestart() {
        verify(engine.send(strike));
        tryVerify(function() { return subject.silentFor >= 500; }, patience);
        verify(engine.send(strike));
        compare([subject.silentFor, restarts], [0, 0]);
    }
    function test_asksAtTheStart() {
        var requests = [];
        tryVerify(function() {
            requests = requests.concat(engine.received());
            return requests.indexOf(levelRequest) >= 0;
        }, patience);
    }
    function test_pedal() {
        verify(engine.send("IM AC B90B 4004"));
        compare(subject.pedal, 64);
        // Another controller.
        verify(engine.send("IM AC B90B 1105"));
        compare(subject.pedal, 64);
    }
    function test_events() {
        var text = [];
        for (var i = 0; i < 40; ++i)
            text.push(strike);
        verify(engine.send(text.join("|")));
        tryVerify(function() { return subject.eventsPerSecond >= 40; }, patience);
    }

    Component {
        id: modelComponent
        HitModel {
            limit: 3
        }
    }
    function test_hitModelWithAnEngine() {
        var model = createTemporaryObject(modelComponent, testCase, { engine: subject });
        verify(engine.send([strike, strike, "IM AC 9909 0724"].join("|")));
        compare(model.count, 3);
        compare([model.get(0).name, model.get(0).velocity], ["Kick", 7]);
        compare([model.get(1).name, model.get(1).zoneName, model.get(1).note], ["Snare", "Head", 38]);
    }
}
