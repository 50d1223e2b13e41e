import QtQuick 2.12

// The output routing of one source: a number of 16 bits whose meaning is not known, sent as two bytes.
QtObject {
    id: routing
    property string label
    property string method
    property var after: []
    readonly property int number: high.value * 256 + low.value

    readonly property Parameter high: Parameter {
        label: "High byte"; method: routing.method; after: [routing.low.value].concat(routing.after)
    }
    readonly property Parameter low: Parameter {
        label: "Low byte"; method: routing.method; before: [routing.high.value]; after: routing.after
    }
}
