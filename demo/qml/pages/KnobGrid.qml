import QtQuick 2.12
import "../controls"

// Knobs in rows of equal length that fill the width.
Grid {
    id: grid
    property var knobs: []
    property int dialSize: 78

    columns: Math.ceil(knobs.length / rows)
    Repeater {
        model: grid.knobs
        Item {
            width: grid.width / grid.columns
            height: grid.height / grid.rows
            Knob {
                anchors.centerIn: parent
                width: Math.min(parent.width, 120)
                parameter: modelData
                dialSize: grid.dialSize
            }
        }
    }
}
