.pragma library

// Second-order filter sections and their magnitude, for the response of an equaliser.

var sampleRate = 48000;
var shelfQ = Math.SQRT1_2;

function section(shape, frequency, gain, q) {
    var a = Math.pow(10, gain / 40);
    var w = 2 * Math.PI * frequency / sampleRate;
    var cosine = Math.cos(w);
    var alpha = Math.sin(w) / (2 * (shape === "peak" ? q : shelfQ));

    if (shape === "peak") {
        return {
            b0: 1 + alpha * a, b1: -2 * cosine, b2: 1 - alpha * a,
            a0: 1 + alpha / a, a1: -2 * cosine, a2: 1 - alpha / a
        };
    }
    // A high shelf is a low shelf mirrored in frequency, which inverts the sign of the cosine.
    var mirror = shape === "highShelf" ? -1 : 1;
    var c = mirror * cosine;
    var root = 2 * Math.sqrt(a) * alpha;
    return {
        b0: a * ((a + 1) - (a - 1) * c + root),
        b1: mirror * 2 * a * ((a - 1) - (a + 1) * c),
        b2: a * ((a + 1) - (a - 1) * c - root),
        a0: (a + 1) + (a - 1) * c + root,
        a1: mirror * -2 * ((a - 1) + (a + 1) * c),
        a2: (a + 1) + (a - 1) * c - root
    };
}

function power(x0, x1, x2, cosine1, cosine2) {
    return x0 * x0 + x1 * x1 + x2 * x2 + 2 * (x0 * x1 + x1 * x2) * cosine1 + 2 * x0 * x2 * cosine2;
}

function decibels(s, frequency) {
    var w = 2 * Math.PI * frequency / sampleRate;
    var cosine1 = Math.cos(w), cosine2 = Math.cos(2 * w);
    return 10 * Math.log(power(s.b0, s.b1, s.b2, cosine1, cosine2)
                         / power(s.a0, s.a1, s.a2, cosine1, cosine2)) / Math.LN10;
}
