.pragma library

// How values are put into words on the screen.

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

// Panning and balance run from 0 to 127 with the middle at 64.
function side(v) {
    var offset = v - 64;
    return offset === 0 ? "centre" : (offset < 0 ? "L " : "R ") + Math.abs(offset);
}

function fineTuning(v) {
    return signed(v - 64);
}
