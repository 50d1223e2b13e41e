import QtQuick 2.12
import "../controls"
import "../style"

// A number and a button that sends it.
Item {
    id: item
    property string name
    property string label
    property int start: 0
    property alias from: box.from
    property alias to: box.to

    implicitHeight: Theme.row

    function send() {
        panel.run(name + " " + box.typed());
    }

    Caption {
        width: box.x
        height: parent.height
        text: item.label
    }
    NumberBox {
        id: box
        objectName: item.name + "-number"
        x: parent.width - button.width - width - Theme.tight
        value: item.start
        onEntered: item.send()
    }
    PushButton {
        id: button
        objectName: item.name + "-send"
        x: parent.width - width
        text: "Send"
        onClicked: item.send()
    }
}
