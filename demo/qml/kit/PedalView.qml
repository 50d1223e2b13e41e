import QtQuick 2.12
import "../device"
import "../style"

// The hi-hat pedal. A full bar is a closed pedal.
Item {
    id: view
    readonly property real closed: Device.pedal / 127

    Rectangle {
        id: slot
        width: 22
        height: parent.height
        radius: 11
        color: Theme.background
        border.color: Theme.line
        Rectangle {
            x: 4
            y: 4 + (1 - view.closed) * (parent.height - 8 - height)
            width: parent.width - 8
            height: 26
            radius: 7
            color: Theme.accent
            Behavior on y { NumberAnimation { duration: Theme.quick } }
        }
    }
    Column {
        anchors { left: slot.right; leftMargin: 10; verticalCenter: parent.verticalCenter }
        spacing: 2
        Caption { text: "Pedal" }
        Text {
            text: view.closed > 0.85 ? "closed" : view.closed < 0.15 ? "open" : "half"
            color: Theme.text
            font.pixelSize: Theme.body
        }
        Caption { text: Device.pedal }
    }
}
