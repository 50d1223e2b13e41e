import QtQuick 2.12
import "../device"
import "../settings"
import "../style"

// One dot for each beat of the bar. The current beat is lit, the first one has a stronger outline.
Row {
    id: row
    property int dotSize: 18
    property real maximumWidth: 400
    readonly property int count: Settings.metronome.beats.value
    readonly property int beat: Device.module.beat

    // Long bars have smaller dots.
    readonly property real dot: Math.min(dotSize, maximumWidth / (count * 1.25))

    spacing: count > 1 ? Math.min(dot * 0.7, (maximumWidth - count * dot) / (count - 1)) : 0

    Repeater {
        model: row.count
        Rectangle {
            readonly property bool lit: row.beat > 0 && (row.beat - 1) % row.count === index
            width: row.dot
            height: row.dot
            radius: row.dot / 2
            color: lit ? Theme.accent : Theme.background
            border.color: lit ? Theme.accent : index === 0 ? Theme.dim : Theme.line
            border.width: index === 0 ? 2 : 1
        }
    }
}
