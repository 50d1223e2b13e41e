import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// The LEDs of the front panel, one at a time, and their brightness.
Card {
    id: card
    property ModuleSettings setup
    property int number: 0
    readonly property Parameter led: setup.led(number)

    title: "LEDs"
    Picker {
        objectName: "led"
        y: 12
        width: 260
        text: card.led.label
        onMoved: card.number = Math.min(65535, Math.max(0, card.number + direction))
    }
    Toggle {
        x: 292
        y: 12
        parameter: card.led
        label: card.led.isOn ? "On" : "Off"
    }
    Caption {
        anchors { left: parent.left; bottom: brightness.top; bottomMargin: 4 }
        text: card.setup.brightness.label
        color: Theme.text
    }
    Caption {
        anchors { right: parent.right; bottom: brightness.top; bottomMargin: 4 }
        text: card.setup.brightness.text
    }
    Slider {
        id: brightness
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; bottomMargin: 12 }
        parameter: card.setup.brightness
    }
}
