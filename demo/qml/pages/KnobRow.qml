import QtQuick 2.12
import "../controls"

// The knobs of a card, aligned to its right edge.
Row {
    id: row
    property var knobs: []
    x: parent.width - width
    y: -24
    Repeater {
        model: row.knobs
        Knob {
            parameter: modelData
            width: row.knobs.length > 1 ? 88 : 120
            dialSize: 78
        }
    }
}
