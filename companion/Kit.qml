pragma Singleton
import QtQml 2.12

// The pads of the drum kit: names, zones and MIDI notes. The engine reports numbers only.
QtObject {
    // In the order of the pad numbers. The first note of a zone is the one to play and to edit.
    readonly property var pads: [
        pad(0, "Kick", "drum", [[36]]),
        pad(1, "Snare", "drum", [[38], [37, 40]]),
        pad(2, "Tom 1", "drum", [[48], [50]]),
        pad(3, "Tom 2", "drum", [[45], [47]]),
        pad(4, "Tom 3", "drum", [[43], [58]]),
        pad(5, "Tom 4", "drum", [[41], [39]]),
        pad(6, "Ride", "cymbal", [[51], [59], [53]]),
        pad(7, "Hi-hat", "cymbal", [[42, 46, 44, 21], [26], [19]]),
        pad(8, "Crash 1", "cymbal", [[49], [55], [17]]),
        pad(9, "Crash 2", "cymbal", [[57], [52], [18]]),
        pad(10, "Aux 1", "aux", [[88], [89], [22]]),
        pad(11, "Aux 2", "aux", [[90], [91], [23]]),
        pad(12, "Aux 3", "aux", [[92], [93], [24]]),
        pad(13, "Aux 4", "aux", [[94], [95], [25]])
    ]
    readonly property int pressureZone: 4

    function pad(number, name, shape, zones) {
        var zoneNames = { drum: ["Head", "Rim"], cymbal: ["Bow", "Edge", "Bell"], aux: ["Pad", "Rim", "Side"] }[shape];
        return {
            pad: number,
            name: name,
            shape: shape,
            zones: zones.map(function(notes, zone) {
                return { zone: zone, name: zoneNames[zone], notes: notes };
            })
        };
    }

    // What ZeltaConnect.note holds, or null if it is not a note of the kit, such as the 0 before the first strike.
    function decode(note) {
        var place = placeOf(note);
        return place && place.zone !== pressureZone ? {
            pad: place.pad,
            zone: place.zone,
            note: place.note,
            velocity: place.value,
            name: pads[place.pad].name,
            zoneName: pads[place.pad].zones[place.zone].name
        } : null;
    }
    // What ZeltaConnect.afterTouchNote holds, or null.
    function decodeAftertouch(note) {
        var place = placeOf(note);
        return place && place.zone === pressureZone ? {
            pad: place.pad,
            note: place.note,
            pressure: place.value,
            name: pads[place.pad].name
        } : null;
    }
    function placeOf(number) {
        if (!Number.isInteger(number) || number < 0)
            return null;
        var place = { pad: number >> 16 & 0xf, zone: number >> 24 & 0x7, note: number >> 8 & 0xff, value: number & 0xff };
        var home = find(place.note);
        return home && home.pad === place.pad && (home.zone === place.zone || place.zone === pressureZone) ? place : null;
    }

    // The pad and the zone of a MIDI note, or null.
    function find(note) {
        for (var i = 0; i < pads.length; ++i) {
            for (var zone = 0; zone < pads[i].zones.length; ++zone) {
                if (pads[i].zones[zone].notes.indexOf(note) >= 0)
                    return { pad: i, zone: zone };
            }
        }
        return null;
    }
    // The MIDI note to play and to edit a zone, or -1.
    function noteOf(pad, zone) {
        var owner = pads[pad];
        var place = owner && owner.zones[zone === undefined ? 0 : zone];
        return place ? place.notes[0] : -1;
    }
}
