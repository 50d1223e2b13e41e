import QtQuick 2.12
import "../controls"
import "../style"

// The device of an electronic drum kit, a file that translates its notes, and the state of the device.
Item {
    height: 2 * Theme.row + Theme.tight

    function toggle() {
        if (panel.kit.connected)
            panel.kit.disconnectKit();
        else
            panel.kit.connectTo(device.text, notes.text);
    }

    TextBox {
        id: device
        objectName: "kit-device"
        width: (parent.width - button.width) * 0.58 - Theme.tight
        placeholderText: "/dev/snd/midiC1D0 or a FIFO"
        onAccepted: panel.kit.connectTo(text, notes.text)
    }
    TextBox {
        id: notes
        objectName: "kit-notes"
        anchors { left: device.right; leftMargin: Theme.tight; right: button.left; rightMargin: Theme.tight }
        placeholderText: "note map, if any"
        onAccepted: panel.kit.connectTo(device.text, text)
    }
    PushButton {
        id: button
        objectName: "kit-connect"
        anchors.right: parent.right
        width: 98
        text: panel.kit.connected ? "Disconnect" : "Connect"
        onClicked: parent.toggle()
    }
    Caption {
        objectName: "kit-state"
        y: Theme.row + Theme.tight
        width: parent.width
        height: Theme.row
        elide: Text.ElideMiddle
        text: panel.kit.state === "" ? "not connected" : panel.kit.state
    }
}
