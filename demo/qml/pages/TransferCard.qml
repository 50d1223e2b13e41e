import QtQuick 2.12
import Qt.labs.folderlistmodel 2.2
import "../controls"
import "../settings"
import "../style"

// Selects a file and its kind, sends it, and shows the progress and the result.
Card {
    id: card
    title: "Send a file"
    property int kind: 0
    property int slot: 1
    readonly property var chosen: Transfers.kinds[kind]

    FolderListModel {
        id: folder
        folder: Transfers.startFolder
        showDirsFirst: true
        showDotAndDotDot: false
        showHidden: false
    }
    Row {
        id: kinds
        spacing: Theme.tight
        Picker {
            objectName: "transferKind"
            width: 296
            text: card.chosen.name
            onMoved: card.kind = (card.kind + direction + Transfers.kinds.length) % Transfers.kinds.length
        }
        Picker {
            width: 184
            visible: card.chosen.slotted === true
            text: "Slot " + card.slot
            onMoved: card.slot = Math.min(127, Math.max(0, card.slot + direction))
        }
    }
    Rectangle {
        id: pathBox
        anchors { left: parent.left; right: parent.right; top: kinds.bottom; topMargin: 12 }
        height: Theme.touch
        radius: 10
        color: Theme.background
        border.color: path.activeFocus ? Theme.accent : Theme.line
        TextInput {
            id: path
            objectName: "path"
            anchors { fill: parent; leftMargin: 14; rightMargin: 14 }
            verticalAlignment: TextInput.AlignVCenter
            clip: true
            color: Theme.text
            selectionColor: Theme.accentDeep
            selectByMouse: true
            font.pixelSize: Theme.body
        }
        Text {
            visible: path.text.length === 0
            anchors { left: parent.left; leftMargin: 14; verticalCenter: parent.verticalCenter }
            text: "Choose a file below, or type its path"
            color: Theme.faint
            font.pixelSize: Theme.body
        }
    }
    Rectangle {
        anchors {
            left: parent.left; right: parent.right; top: pathBox.bottom; topMargin: 12
            bottom: sender.top; bottomMargin: 12
        }
        radius: 10
        color: Theme.background
        border.color: Theme.line
        FileList {
            anchors { fill: parent; margins: 4 }
            model: folder
            chosenPath: path.text
            onFileChosen: path.text = filePath
            onFolderChosen: folder.folder = folderUrl
        }
    }
    PushButton {
        id: sender
        objectName: "send"
        anchors { left: parent.left; right: parent.right; bottom: line.top; bottomMargin: 16 }
        prominent: true
        enabled: path.text.length > 0 && !Transfers.busy
        text: "Send"
        onConfirmed: Transfers.send(card.kind, path.text, card.slot)
    }
    ProgressLine {
        id: line
        anchors { left: parent.left; right: parent.right; bottom: status.top; bottomMargin: 12 }
        part: Transfers.progress
        tint: Transfers.failed ? Theme.alarm : Theme.accent
    }
    Text {
        id: status
        anchors { left: parent.left; right: resent.left; rightMargin: 8; bottom: parent.bottom }
        elide: Text.ElideRight
        text: Transfers.statusText
        color: Transfers.failed ? Theme.alarm : Theme.text
        font.pixelSize: Theme.body
    }
    Text {
        id: resent
        anchors { right: parent.right; bottom: parent.bottom }
        text: Transfers.retransmissions > 0 ? Transfers.retransmissions + " resent" : ""
        color: Theme.dim
        font.pixelSize: Theme.body
    }
}
