import QtQuick 2.12
import "../controls"
import "../device"
import "../kit"
import "../settings"
import "../style"

// Tempo, bar and click.
Item {
    id: page
    readonly property MetronomeSettings metronome: Settings.metronome

    Card {
        id: pulse
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: Theme.margin }
        width: 660
        title: "Tempo"

        Toggle {
            anchors { right: parent.right; top: parent.top; topMargin: -36 }
            parameter: page.metronome.active
        }
        Text {
            id: figure
            anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 14 }
            text: page.metronome.tempo.value
            color: Device.tempo > 0 ? Theme.text : Theme.faint
            font.pixelSize: 168
            font.bold: true
        }
        Caption {
            anchors { horizontalCenter: parent.horizontalCenter; top: figure.bottom; topMargin: -18 }
            text: Device.tempo > 0 ? "beats per minute" : "beats per minute, not yet confirmed by the engine"
        }
        BeatRow {
            anchors { horizontalCenter: parent.horizontalCenter; bottom: slider.top; bottomMargin: 40 }
            dotSize: 64
            maximumWidth: 600
        }
        TempoSlider {
            id: slider
            anchors { left: parent.left; right: parent.right; bottom: buttons.top; bottomMargin: 26 }
            parameter: page.metronome.tempo
        }
        Row {
            id: buttons
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            spacing: Theme.gap
            height: 132
            TempoButton { text: "\u22125"; step: -5 }
            TempoButton { text: "\u22121"; step: -1 }
            TapButton {
                width: parent.width - 4 * (92 + Theme.gap)
                height: parent.height
                prominent: true
                textSize: 30
            }
            TempoButton { text: "+1"; step: 1 }
            TempoButton { text: "+5"; step: 5 }
        }
    }
    Card {
        id: bar
        anchors {
            left: pulse.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin
            top: pulse.top
        }
        height: 236
        title: "Bar"
        Grid {
            columns: 2
            columnSpacing: Theme.gap
            rowSpacing: Theme.gap
            Stepper { parameter: page.metronome.beats }
            Stepper { parameter: page.metronome.noteValue; choices: [2, 4, 8, 16] }
            Stepper { parameter: page.metronome.interval }
            Item {
                width: 200
                height: 75
                Toggle {
                    anchors.bottom: parent.bottom
                    parameter: page.metronome.accent
                }
            }
        }
    }
    Card {
        anchors {
            left: bar.left; right: bar.right; top: bar.bottom; topMargin: Theme.gap; bottom: pulse.bottom
        }
        title: "Click"
        Stepper {
            parameter: page.metronome.click
        }
        Fader {
            anchors { right: parent.right; rightMargin: 68; top: parent.top; bottom: parent.bottom }
            label: "Level"
            parameter: page.metronome.level
        }
    }
}
