import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// The memory that the engine reported last. One event contains both figures, in different units. Neither is a part of
// the other, so there is no bar.
Card {
    id: card
    title: "Memory"
    readonly property real whole: Device.module.totalFlashSize
    readonly property real samples: Device.module.flashSize

    function mebibytes(bytes) {
        return (bytes / 1048576).toFixed(1) + " MiB";
    }

    Column {
        width: parent.width
        spacing: 12
        Text {
            visible: card.whole === 0 && card.samples === 0
            text: "Not reported yet"
            color: Theme.dim
            font.pixelSize: Theme.body
        }
        Text {
            visible: card.whole > 0 || card.samples > 0
            text: "For samples: " + card.mebibytes(card.samples)
            color: Theme.text
            font.pixelSize: Theme.body
        }
        Text {
            visible: card.whole > 0 || card.samples > 0
            text: "Whole flash: " + card.mebibytes(card.whole)
            color: Theme.text
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
