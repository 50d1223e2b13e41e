import QtQuick 2.12
import "../device"
import "../settings"
import "../style"

// One dot per beat of the bar; the one being played is lit, the first stands out.
Row {
    id: row
    property int dotSize: 18
    property real maximumWidth: 400
    readonly property int count: Settings.metronome.beats.value
    readonly property int beat: Device.module.beat

    spacing: count > 1 ? Math.min(dotSize * 0.7, (maximumWidth - count * dotSize) / (count - 1)) : 0

    Repeater {
        model: row.count
        Rectangle {
            readonly property bool lit: row.beat > 0 && (row.beat - 1) % row.count === index
            width: row.dotSize
            height: row.dotSize
            radius: row.dotSize / 2
            color: lit ? Theme.accent : Theme.background
            border.color: lit ? Theme.accent : index === 0 ? Theme.dim : Theme.line
            border.width: index === 0 ? 2 : 1
        }
    }
}
