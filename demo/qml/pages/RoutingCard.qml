import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// One routing: its number, and a stepper for each byte.
Card {
    id: card
    property Routing routing
    // The height of what the owner puts above the number.
    property int head: 0

    title: routing.label
    aside: "0x" + ("000" + routing.number.toString(16).toUpperCase()).slice(-4)

    Text {
        anchors { left: parent.left; right: parent.right; top: parent.top; topMargin: card.head; bottom: bytes.top }
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: card.routing.number
        color: Theme.text
        font.pixelSize: 44
        font.bold: true
    }
    Row {
        id: bytes
        anchors.bottom: parent.bottom
        width: parent.width
        spacing: Theme.gap
        Stepper {
            objectName: card.routing.method + "-high"
            width: (parent.width - parent.spacing) / 2
            parameter: card.routing.high
        }
        Stepper {
            objectName: card.routing.method + "-low"
            width: (parent.width - parent.spacing) / 2
            parameter: card.routing.low
        }
    }
}
