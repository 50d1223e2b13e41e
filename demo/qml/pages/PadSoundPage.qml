import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"
import "../device/pads.js" as Pads
import "../style"

// One zone of one pad: its sound, second sound, mix and MIDI note.
Item {
    id: page
    property int pad: 1
    property int zone: 0
    readonly property int note: Pads.noteOf(pad, zone)
    readonly property PadSettings sound: Settings.pad(note)
    readonly property real rowHeight: (height - 2 * Theme.margin - 3 * Theme.gap) / 4

    PadList {
        id: list
        x: Theme.margin
        y: Theme.margin
        height: parent.height - 2 * Theme.margin
        pad: page.pad
        zone: page.zone
        onPadChosen: {
            page.zone = 0;
            page.pad = index;
        }
        onZoneChosen: page.zone = index
    }
    Column {
        id: rows
        anchors { left: list.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin }
        y: Theme.margin
        spacing: Theme.gap

        Card {
            width: rows.width
            height: page.rowHeight
            title: "Sound"
            Stepper {
                anchors.bottom: parent.bottom
                width: 180
                parameter: page.sound.group
            }
            Stepper {
                anchors.bottom: parent.bottom
                x: 196
                width: 180
                parameter: page.sound.instrument
            }
            KnobRow { knobs: page.sound.soundKnobs }
        }
        Card {
            width: rows.width
            height: page.rowHeight
            title: "Second sound"
            Toggle {
                anchors.bottom: parent.bottom
                parameter: page.sound.secondActive
                label: page.sound.secondActive.isOn ? "On" : "Off"
            }
            Stepper {
                anchors.bottom: parent.bottom
                x: 196
                width: 180
                parameter: page.sound.secondSelect
            }
            KnobRow {
                knobs: page.sound.secondKnobs
                opacity: page.sound.secondActive.isOn ? 1 : 0.45
            }
        }
        Card {
            width: rows.width
            height: page.rowHeight
            title: "Mix"
            PushButton {
                objectName: "play"
                anchors.bottom: parent.bottom
                width: 180
                text: "Play note " + page.note
                prominent: true
                onConfirmed: Device.send("sendMidiNote", [page.note, 100])
            }
            KnobRow { knobs: page.sound.mixKnobs }
        }
        Card {
            width: rows.width
            height: page.rowHeight
            title: "MIDI"
            Stepper {
                anchors.bottom: parent.bottom
                width: 180
                parameter: page.sound.midiNote
            }
            KnobRow { knobs: [page.sound.buzz] }
        }
    }
}
