import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// One effect unit: name, switch and type on the left, the knobs on the right.
Card {
    id: row
    property Effect effect

    title: effect.title
    Toggle {
        anchors { left: parent.left; bottom: parent.bottom }
        parameter: row.effect.active
        label: row.effect.active.isOn ? "On" : "Off"
    }
    Stepper {
        visible: row.effect.kind !== null
        anchors { bottom: parent.bottom }
        x: 136
        width: 176
        parameter: row.effect.kind
    }
    Row {
        id: knobs
        x: 350
        width: parent.width - x
        y: -22
        opacity: row.effect.active.isOn ? 1 : 0.45
        Repeater {
            model: row.effect.settings
            Knob {
                parameter: modelData
                width: Math.min(104, knobs.width / 8)
                dialSize: 78
            }
        }
    }
}
