import QtQuick 2.12

// A continuous effect parameter. The module scales it by the range in the call.
Parameter {
    to: 100
    after: [0, 100, 0]
    wording: function(v) { return v + " %"; }
}
