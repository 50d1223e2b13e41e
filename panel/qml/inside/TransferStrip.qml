import QtQuick 2.12
import "../controls"
import "../style"

// The file that arrives, or how the last one ended.
Rectangle {
    id: strip
    implicitHeight: 40
    radius: Theme.radius
    color: Theme.surface
    border.color: panel.transfer.running ? Theme.accent : Theme.line

    Caption {
        id: name
        x: 8
        height: 28
        text: "Transfer"
        color: Theme.text
        font.bold: true
    }
    Caption {
        objectName: "transfer-text"
        anchors { left: name.right; leftMargin: Theme.gap; right: history.left; rightMargin: Theme.gap }
        height: 28
        text: panel.transfer.text
    }
    Caption {
        id: history
        anchors { right: parent.right; rightMargin: 8 }
        height: 28
        text: panel.transfer.history
    }
    Rectangle {
        x: 8
        y: 29
        width: parent.width - 16
        height: 5
        radius: 2
        color: Theme.background
        Rectangle {
            width: parent.width * panel.transfer.part
            height: parent.height
            radius: 2
            color: Theme.accent
        }
    }
}
