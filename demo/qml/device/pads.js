.pragma library

// The pads in the order of their numbers, with the notes of each zone. The screen plays and edits the first note of a
// zone.
var all = [
    { name: "Kick", shape: "kick", zones: [[36]] },
    { name: "Snare", shape: "drum", zones: [[38], [37, 40]] },
    { name: "Tom 1", shape: "drum", zones: [[48], [50]] },
    { name: "Tom 2", shape: "drum", zones: [[45], [47]] },
    { name: "Tom 3", shape: "drum", zones: [[43], [58]] },
    { name: "Tom 4", shape: "drum", zones: [[41], [39]] },
    { name: "Ride", shape: "cymbal", zones: [[51], [59], [53]] },
    { name: "Hi-hat", shape: "cymbal", zones: [[42, 46, 44, 21], [26], [19]] },
    { name: "Crash 1", shape: "cymbal", zones: [[49], [55], [17]] },
    { name: "Crash 2", shape: "cymbal", zones: [[57], [52], [18]] },
    { name: "Aux 1", shape: "plate", zones: [[88], [89], [22]] },
    { name: "Aux 2", shape: "plate", zones: [[90], [91], [23]] },
    { name: "Aux 3", shape: "plate", zones: [[92], [93], [24]] },
    { name: "Aux 4", shape: "plate", zones: [[94], [95], [25]] }
];

function zoneNames(pad) {
    switch (all[pad].shape) {
    case "kick":
        return ["Head"];
    case "drum":
        return ["Head", "Rim"];
    case "cymbal":
        return ["Bow", "Edge", "Bell"];
    default:
        return ["Pad", "Rim", "Side"];
    }
}

function noteOf(pad, zone) {
    return all[pad].zones[Math.min(zone, all[pad].zones.length - 1)][0];
}

function nameOfNote(note) {
    for (var i = 0; i < all.length; ++i) {
        for (var zone = 0; zone < all[i].zones.length; ++zone) {
            if (all[i].zones[zone].indexOf(note) >= 0)
                return all[i].name;
        }
    }
    return String(note);
}
