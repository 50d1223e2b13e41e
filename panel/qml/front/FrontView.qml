import QtQuick 2.12
import "../controls"
import "../style"

// The front of the module: pads, pedal, switches, pots, tempo and program.
Item {
    id: front
    readonly property real quarter: Math.floor((width - 3 * Theme.tight) / 4)

    PadGrid {
        objectName: "pads"
        width: parent.width
        height: Math.floor(pedal.y - Theme.gap)
        focus: true
    }
    Item {
        id: pedal
        y: switches.y - height - Theme.tight
        width: parent.width
        height: Theme.row
        Caption {
            width: front.quarter
            height: parent.height
            text: "Hi-hat pedal " + slider.last
        }
        LevelSlider {
            id: slider
            objectName: "pedal"
            x: front.quarter + Theme.tight
            width: parent.width - x
            to: 127
            stepSize: 8
            onChanged: panel.run("hihat " + level)
        }
        Component.onCompleted: panel.pedalMoved.connect(slider.show)
        Component.onDestruction: panel.pedalMoved.disconnect(slider.show)
    }
    Grid {
        id: switches
        y: pots.y - height - Theme.tight
        columns: 4
        spacing: Theme.tight
        // Jacks stay plugged in, all others are buttons.
        Repeater {
            model: [{ name: "power", label: "Power" }, { name: "home", label: "Home" },
                { name: "foot1", label: "Foot switch 1" }, { name: "foot2", label: "Foot switch 2" },
                { name: "aux3", label: "Aux 3" }, { name: "aux4", label: "Aux 4" },
                { name: "headphone", label: "Headphone jack", stays: true },
                { name: "mixin", label: "Mix in jack", stays: true }]
            PushButton {
                objectName: "switch-" + modelData.name
                width: front.quarter
                text: modelData.label
                textSize: Theme.small
                checkable: modelData.stays === true
                lit: checkable ? checked : pressed
                function set(on) {
                    panel.run("switch " + modelData.name + " " + (on ? 1 : 0));
                }
                onPressedChanged: {
                    if (!checkable)
                        set(pressed);
                }
                onToggled: set(checked)
            }
        }
    }
    Row {
        id: pots
        y: reports.y - height - Theme.tight
        spacing: Theme.tight
        Repeater {
            model: 4
            Pot {
                number: index
                width: front.quarter
            }
        }
    }
    Row {
        id: reports
        y: parent.height - height
        spacing: 2 * Theme.gap
        SendNumber {
            width: (front.width - parent.spacing) / 2
            name: "tempo"
            label: "Tempo"
            from: 20
            to: 531
            start: panel.tempo
        }
        SendNumber {
            width: (front.width - parent.spacing) / 2
            name: "program"
            label: "Program"
            to: 127
        }
    }
}
