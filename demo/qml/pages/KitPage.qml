import QtQuick 2.12
import "../controls"
import "../kit"
import "../settings"
import "../style"

// The page for playing: the kit, the tempo, the output levels, and the faders that are used most.
Item {
    id: page
    readonly property MixerSettings mixer: Settings.mixer
    readonly property var faders: [mixer.kit, mixer.master, mixer.monitor, mixer.phones, mixer.spdif, mixer.usbIn,
                                   mixer.mixIn, mixer.song, mixer.synth, Settings.metronome.level]

    Card {
        id: stage
        x: Theme.margin
        y: Theme.margin
        width: 752
        height: 470
        padding: 8
        KitView { anchors.fill: parent }
    }
    Card {
        id: tempo
        anchors { left: stage.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin; top: stage.top }
        height: 170
        title: "Tempo"
        TempoPanel { anchors.fill: parent }
    }
    Card {
        anchors { left: tempo.left; right: tempo.right; top: tempo.bottom; topMargin: Theme.gap; bottom: stage.bottom }
        title: "Outputs"
        OutputMeters { anchors.fill: parent }
    }
    Card {
        anchors {
            left: stage.left; right: tempo.right; top: stage.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        Row {
            id: row
            width: parent.width
            Repeater {
                model: page.faders
                Fader {
                    parameter: modelData
                    width: row.width / page.faders.length
                    height: 172
                }
            }
        }
    }
}
