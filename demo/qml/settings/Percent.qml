import QtQuick 2.12

// A continuous effect parameter: the engine scales it by the range sent with it.
Parameter {
    to: 100
    after: [0, 100, 0]
    wording: function(v) { return v + " %"; }
}
