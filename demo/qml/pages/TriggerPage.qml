import QtQuick 2.12
import "../charts"
import "../controls"
import "../settings"
import "../style"

// One trigger input: its velocity curve, its settings, and those for the hi-hat's pedal.
Item {
    id: page
    property int input: 0
    readonly property TriggerSettings trigger: Settings.trigger(input)

    Item {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.margin }
        height: Theme.touch
        Picker {
            id: picker
            objectName: "input"
            width: 248
            text: "Input " + page.input
            onMoved: page.input = Math.min(127, Math.max(0, page.input + direction))
        }
        Caption {
            anchors { left: picker.right; leftMargin: Theme.gap; verticalCenter: parent.verticalCenter }
            text: "The engine numbers its inputs."
        }
        Toggle {
            anchors { right: ender.left; rightMargin: 24 }
            parameter: page.trigger.positional
        }
        PushButton {
            id: ender
            objectName: "transferEnd"
            anchors.right: parent.right
            text: "Send the transfer end"
            onConfirmed: page.trigger.endTransfer()
        }
    }
    Card {
        id: curve
        anchors {
            left: header.left; top: header.bottom; topMargin: Theme.gap
            bottom: kind.top; bottomMargin: Theme.gap
        }
        width: 412
        title: "Velocity curve"
        aside: "draw it with a finger"
        TriggerCurve {
            anchors { left: parent.left; right: parent.right; top: parent.top; bottom: preset.top; bottomMargin: Theme.gap }
            settings: page.trigger
        }
        Stepper {
            id: preset
            anchors { left: parent.left; bottom: parent.bottom }
            width: 200
            parameter: page.trigger.curve
        }
        PushButton {
            objectName: "straighten"
            anchors { right: parent.right; bottom: parent.bottom }
            width: 164
            text: "Straight line"
            onConfirmed: page.trigger.straighten()
        }
    }
    Card {
        id: kind
        anchors { left: curve.left; right: curve.right; bottom: parent.bottom; bottomMargin: Theme.margin }
        height: 140
        title: "Input"
        Row {
            anchors.bottom: parent.bottom
            spacing: Theme.gap
            Stepper { width: 182; parameter: page.trigger.kind }
            Stepper { width: 182; parameter: page.trigger.bankPreset }
        }
    }
    Card {
        id: strokes
        anchors { left: curve.right; leftMargin: Theme.gap; right: header.right; top: curve.top }
        height: (page.height - 2 * Theme.margin - header.height - 2 * Theme.gap) * 0.56
        title: "Strokes"
        KnobGrid {
            anchors.fill: parent
            knobs: page.trigger.strokeKnobs
            rows: 2
        }
    }
    PedalCard {
        anchors {
            left: strokes.left; right: strokes.right; top: strokes.bottom; topMargin: Theme.gap; bottom: kind.bottom
        }
        trigger: page.trigger
    }
}
