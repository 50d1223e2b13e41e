import QtQuick 2.12
import QtTest 1.2
import ZeltaConnect.Companion 1.0
import "../../demo/qml/device/pads.js" as DemoPads

// Names and notes of the pads, and the list of hits. docs.examples compares Kit with the guide's table.
TestCase {
    id: testCase
    name: "Kit"

    function test_decode_data() {
        return [
            { tag: "kick", note: 0x00002440, name: "Kick", zoneName: "Head", pad: 0, zone: 0, midi: 36, velocity: 64 },
            { tag: "snare rim", note: 0x0101257f, name: "Snare", zoneName: "Rim", pad: 1, zone: 1, midi: 37, velocity: 127 },
            { tag: "second note of the rim", note: 0x01012801, name: "Snare", zoneName: "Rim", pad: 1, zone: 1, midi: 40, velocity: 1 },
            { tag: "bell of the ride", note: 0x02063501, name: "Ride", zoneName: "Bell", pad: 6, zone: 2, midi: 53, velocity: 1 },
            { tag: "closed hi-hat", note: 0x00071500, name: "Hi-hat", zoneName: "Bow", pad: 7, zone: 0, midi: 21, velocity: 0 },
            { tag: "side of aux 4", note: 0x020d1901, name: "Aux 4", zoneName: "Side", pad: 13, zone: 2, midi: 25, velocity: 1 }
        ];
    }
    function test_decode(row) {
        var hit = Kit.decode(row.note);
        compare([hit.name, hit.zoneName, hit.pad, hit.zone, hit.note, hit.velocity],
                [row.name, row.zoneName, row.pad, row.zone, row.midi, row.velocity]);
        compare(Kit.decodeAftertouch(row.note), null);
    }
    function test_decodeAftertouch() {
        var choke = Kit.decodeAftertouch(0x0408317f);
        compare([choke.name, choke.pad, choke.note, choke.pressure], ["Crash 1", 8, 49, 127]);
        compare(Kit.decode(0x0408317f), null);
    }
    function test_notANoteOfTheKit_data() {
        return [
            { tag: "before the first strike", note: 0 },
            { tag: "note of no pad", note: 0x00000140 },
            { tag: "pad of another note", note: 0x00022440 },
            { tag: "zone of another note", note: 0x01002440 },
            { tag: "no pad", note: 0x000f2440 },
            { tag: "negative", note: -1 },
            { tag: "not a number", note: NaN },
            { tag: "undefined", note: undefined },
            { tag: "null", note: null },
            { tag: "text", note: "9280" }
        ];
    }
    function test_notANoteOfTheKit(row) {
        compare(Kit.decode(row.note), null);
        compare(Kit.decodeAftertouch(row.note), null);
    }
    function test_noteOf() {
        compare([Kit.noteOf(0), Kit.noteOf(1, 1), Kit.noteOf(7, 0), Kit.noteOf(13, 2)], [36, 37, 42, 25]);
        compare([Kit.noteOf(14, 0), Kit.noteOf(-1, 0), Kit.noteOf(0, 1), Kit.noteOf(undefined), Kit.noteOf("x")],
                [-1, -1, -1, -1, -1]);
    }
    function test_demoHasTheSamePads() {
        compare(Kit.pads.length, 14);
        compare(DemoPads.all.length, 14);
        for (var i = 0; i < 14; ++i) {
            var pad = Kit.pads[i];
            compare(pad.pad, i);
            compare(pad.name, DemoPads.all[i].name);
            compare(pad.zones.map(function(zone) { return zone.notes; }), DemoPads.all[i].zones);
            compare(pad.zones.map(function(zone) { return zone.name; }), DemoPads.zoneNames(i).slice(0, pad.zones.length));
            for (var zone = 0; zone < pad.zones.length; ++zone)
                compare(Kit.noteOf(i, zone), DemoPads.noteOf(i, zone));
        }
    }

    // The list of hits

    Component {
        id: sourceComponent
        QtObject {
            property int note: 0
            function strike(pad, velocity) {
                note = pad << 16 | Kit.noteOf(pad) << 8 | velocity;
            }
        }
    }
    Component {
        id: modelComponent
        HitModel {}
    }
    function test_hits() {
        var source = createTemporaryObject(sourceComponent, testCase);
        var model = createTemporaryObject(modelComponent, testCase, { engine: source });
        compare(model.limit, 16);
        model.limit = 2;
        source.strike(0, 1);
        compare(model.count, 1);
        compare([model.get(0).pad, model.get(0).zone, model.get(0).note, model.get(0).velocity, model.get(0).name,
                 model.get(0).zoneName], [0, 0, 36, 1, "Kick", "Head"]);
        source.strike(1, 2);
        source.strike(2, 3);
        compare(model.count, 2);
        compare([model.get(0).name, model.get(1).name], ["Tom 1", "Snare"]);
        compare([model.latest.name, model.latest.velocity], ["Tom 1", 3]);
        source.note = 0;
        compare([model.count, model.latest.name], [2, "Tom 1"]);
        model.limit = 1;
        compare([model.count, model.get(0).name], [1, "Tom 1"]);
        model.limit = 0;
        source.strike(3, 3);
        compare(model.count, 0);
        model.limit = 1;
        model.engine = null;
        source.strike(4, 3);
        compare(model.count, 0);
    }
}
