import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// The module itself: MIDI, LEDs, bluetooth and power.
Item {
    id: page
    readonly property ModuleSettings setup: Settings.setup

    Card {
        id: midi
        x: Theme.margin
        y: Theme.margin
        width: 660
        height: 356
        title: "MIDI"
        aside: "the engine's own numbers"
        Grid {
            columns: 3
            spacing: Theme.gap
            rowSpacing: 24
            Repeater {
                model: page.setup.midi
                Stepper {
                    width: 198
                    parameter: modelData
                }
            }
        }
    }
    LedCard {
        anchors {
            left: midi.left; right: midi.right; top: midi.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        setup: page.setup
    }
    BluetoothCard {
        id: bluetooth
        anchors {
            left: midi.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin; top: midi.top
        }
        height: 282
        setup: page.setup
    }
    Card {
        id: hiHat
        anchors { left: bluetooth.left; right: bluetooth.right; top: bluetooth.bottom; topMargin: Theme.gap }
        height: 74
        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            parameter: page.setup.fixedHiHat
        }
    }
    Card {
        anchors {
            left: bluetooth.left; right: bluetooth.right; top: hiHat.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        title: "Power"
        Stepper {
            y: 12
            width: parent.width
            label: "Auto-off, the engine's own number"
            parameter: page.setup.autoOff
        }
        PushButton {
            objectName: "powerOff"
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            height: 64
            warning: true
            text: "Hold to switch the module off"
            onConfirmed: page.setup.powerOff()
        }
    }
}
