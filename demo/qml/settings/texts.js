.pragma library

// Values as texts.

function decibels(v) {
    return (v > 0 ? "+" : v < 0 ? "\u2212" : "") + Math.abs(v) + " dB";
}

function hertz(v) {
    if (v < 1000)
        return Math.round(v) + " Hz";
    return (v / 1000).toFixed(v < 10000 ? 2 : 1) + " kHz";
}

function signed(v) {
    return (v > 0 ? "+" : v < 0 ? "\u2212" : "") + Math.abs(v);
}

function oneDecimal(v) {
    return v.toFixed(1);
}

// Panning and balance: 0 to 127, the middle is 64. Which end is left is not known.
function side(v) {
    return v === 64 ? "centre" : signed(v - 64);
}

function fineTuning(v) {
    return signed(v - 64);
}

// A value of JSON as lines: the keys of an object, those of its parts indented.
function outline(value, indent) {
    var lines = [];
    for (var key in value) {
        var part = value[key];
        if (part !== null && typeof part === "object")
            lines.push(indent + key + ":\n" + outline(part, indent + "    "));
        else
            lines.push(indent + key + ": " + part);
    }
    return lines.join("\n");
}
