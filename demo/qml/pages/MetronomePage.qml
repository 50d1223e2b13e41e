import QtQuick 2.12
import "../controls"
import "../device"
import "../device/pads.js" as Pads
import "../kit"
import "../settings"
import "../style"

// The tempo, the bar and the click.
Item {
    id: page
    readonly property MetronomeSettings metronome: Settings.metronome
    readonly property var padNotes: Pads.all.map(function(pad) { return pad.zones[0][0]; })

    Card {
        id: pulse
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: Theme.margin }
        width: 626
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
            maximumWidth: 590
        }
        Slider {
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
        id: click
        anchors { left: bar.left; right: bar.right; top: bar.bottom; topMargin: Theme.gap }
        height: 236
        title: "Click"
        Stepper {
            parameter: page.metronome.click
        }
        Caption {
            anchors { left: parent.left; bottom: level.top; bottomMargin: 2 }
            text: page.metronome.level.label + " level"
            color: Theme.text
        }
        Caption {
            anchors { right: parent.right; bottom: level.top; bottomMargin: 2 }
            text: page.metronome.level.text
        }
        Slider {
            id: level
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            parameter: page.metronome.level
        }
    }
    Card {
        anchors {
            left: bar.left; right: bar.right; top: click.bottom; topMargin: Theme.gap; bottom: pulse.bottom
        }
        title: "Tap the tempo with a pad"
        Row {
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.gap
            Stepper { parameter: page.metronome.tapNote1; choices: page.padNotes }
            Stepper { parameter: page.metronome.tapNote2; choices: page.padNotes }
        }
    }
}
