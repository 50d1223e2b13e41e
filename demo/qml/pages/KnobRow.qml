import QtQuick 2.12
import "../controls"

// The knobs at the right of a pad card, ending at its right edge whatever their number.
Row {
    id: row
    property var knobs: []
    x: parent.width - width
    y: -24
    Repeater {
        model: row.knobs
        Knob {
            parameter: modelData
            width: 88
            dialSize: 78
        }
    }
}
