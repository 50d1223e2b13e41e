import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// The bluetooth switches and the name under which the module appears.
Card {
    id: card
    property ModuleSettings setup

    title: "Bluetooth"
    Row {
        y: 4
        spacing: 40
        Toggle { parameter: card.setup.bluetoothSwitch }
        Toggle { parameter: card.setup.bluetoothEnable }
    }
    Caption {
        anchors { left: parent.left; bottom: name.top; bottomMargin: 6 }
        text: card.setup.bluetoothName.length > 0 ? "Name: " + card.setup.bluetoothName : "Name: not set yet"
        color: Theme.text
    }
    TextBox {
        id: name
        objectName: "bluetoothName"
        anchors { left: parent.left; right: parent.right; bottom: setter.top; bottomMargin: Theme.tight }
        maximumLength: 32
        text: "Zelta"
        hint: "Up to 32 characters"
    }
    PushButton {
        id: setter
        objectName: "nameBluetooth"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        enabled: name.text.length > 0
        text: "Set the name"
        onConfirmed: card.setup.nameBluetooth(name.text)
    }
}
