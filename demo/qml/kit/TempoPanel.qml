import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"
import "../style"

// The tempo, the beat, and a button to tap a tempo. The tempo is pale until the engine reports one.
Item {
    id: panel
    readonly property MetronomeSettings metronome: Settings.metronome

    Text {
        id: figure
        text: panel.metronome.tempo.value
        color: Device.tempo > 0 ? Theme.text : Theme.faint
        font.pixelSize: Theme.display
        font.bold: true
        y: -10
    }
    Caption {
        anchors { left: figure.right; leftMargin: 8; baseline: figure.baseline }
        text: "bpm"
        font.pixelSize: Theme.body
    }
    TapButton {
        anchors.right: parent.right
        width: 112
        height: 58
    }
    BeatRow {
        anchors { left: parent.left; bottom: parent.bottom; bottomMargin: 14 }
        dotSize: 18
        maximumWidth: 190
    }
    Toggle {
        anchors { right: parent.right; bottom: parent.bottom; bottomMargin: -4 }
        parameter: panel.metronome.active
        label: "Click"
    }
}
