import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// The sample memory as the engine last reported it.
Card {
    id: card
    title: "Sample memory"
    readonly property real total: Device.module.totalFlashSize
    readonly property real used: Device.module.flashSize

    function megabytes(bytes) {
        return (bytes / 1048576).toFixed(1) + " MB";
    }

    Column {
        width: parent.width
        spacing: 12
        ProgressLine {
            width: parent.width
            part: card.total > 0 ? card.used / card.total : 0
        }
        Text {
            text: card.total > 0 || card.used > 0 ? "flash size " + card.megabytes(card.used) : "not reported yet"
            color: Theme.text
            font.pixelSize: Theme.body
        }
        Text {
            visible: card.total > 0
            text: "total flash size " + card.megabytes(card.total)
            color: Theme.dim
            font.pixelSize: Theme.body
        }
    }
    PushButton {
        objectName: "requestMemInfo"
        anchors { left: parent.left; right: parent.right; bottom: eraser.top; bottomMargin: Theme.tight }
        text: "Ask for the memory"
        onConfirmed: Device.request("requestMemInfo")
    }
    PushButton {
        id: eraser
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        warning: true
        text: "Hold to erase deeply"
        onConfirmed: Device.request("deepErase")
    }
}
