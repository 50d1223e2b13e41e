import QtQuick 2.12
import "../controls"
import "../style"

// The stream of messages in both directions.
Item {
    id: page

    TextBox {
        id: search
        objectName: "messages-search"
        width: pause.x - Theme.tight
        placeholderText: "Filter, for example snare, tempo or 49 4D"
        onTextChanged: panel.messages.search = text
    }
    PushButton {
        id: pause
        objectName: "messages-pause"
        anchors { right: clear.left; rightMargin: Theme.tight }
        text: "Pause"
        checkable: true
        onToggled: panel.stream.paused = checked
    }
    PushButton {
        id: clear
        objectName: "messages-clear"
        anchors.right: parent.right
        text: "Clear"
        onClicked: panel.stream.clear()
    }
    Row {
        id: tools
        anchors { top: search.bottom; topMargin: Theme.tight }
        spacing: Theme.tight
        PushButton {
            objectName: "messages-sent"
            text: "Sent"
            checkable: true
            checked: true
            onToggled: panel.messages.sent = checked
        }
        PushButton {
            objectName: "messages-received"
            text: "Received"
            checkable: true
            checked: true
            onToggled: panel.messages.received = checked
        }
        PushButton {
            objectName: "messages-meters"
            text: "Meters"
            checkable: true
            onToggled: panel.stream.meters = checked
        }
        PushButton {
            objectName: "messages-data"
            text: "File data"
            checkable: true
            onToggled: panel.stream.fileData = checked
        }
    }
    LineList {
        objectName: "messages-list"
        anchors { top: tools.bottom; topMargin: Theme.gap; bottom: parent.bottom }
        width: page.width
        model: panel.messages
        emptyText: panel.module === "" ? "The engine waits for a first datagram of the module."
                                       : "No message passes the filter."
        delegate: Item {
            // In the order of MessageStream's kinds.
            readonly property color tint: [Theme.received, Theme.sent, Theme.dim, Theme.alarm, Theme.accent][kind]

            width: page.width - 12
            height: 20
            Text {
                id: clock
                x: 6
                height: parent.height
                text: time
                color: Theme.dim
                font { pixelSize: Theme.small; family: Theme.mono }
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                id: sign
                anchors { left: clock.right; leftMargin: Theme.tight }
                width: 16
                height: parent.height
                text: ["\u2190", "\u2192", "\u00b7", "!", "\u203a"][kind]
                color: parent.tint
                font { pixelSize: Theme.body; bold: true }
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                id: line
                anchors.left: sign.right
                width: Math.min(implicitWidth, parent.width - x)
                height: parent.height
                text: words
                color: kind === 3 ? Theme.alarm : Theme.text
                font.pixelSize: Theme.small
                elide: Text.ElideRight
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                anchors { left: line.right; leftMargin: Theme.gap; right: parent.right }
                horizontalAlignment: Text.AlignRight
                height: parent.height
                text: bytes
                color: Theme.dim
                font { pixelSize: 11; family: Theme.mono }
                elide: Text.ElideRight
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
