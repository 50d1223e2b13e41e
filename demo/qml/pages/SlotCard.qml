import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// The engine's numbered slots of imported banks and samples.
Card {
    id: card
    title: "Slots"
    property bool banks: true
    property int slot: 1
    property string lastAnswer: "no answer yet"

    // Answers about slots and memory arrive as plain events. The card shows them without interpreting them.
    function note(id, first, second) {
        lastAnswer = String.fromCharCode(id >> 8, id & 0xff) + "  " + first + "  " + second;
    }
    Component.onCompleted: Device.answered.connect(note)
    Component.onDestruction: Device.answered.disconnect(note)

    Column {
        width: parent.width
        spacing: 12
        SectionTabs {
            width: parent.width
            names: ["Banks", "Samples"]
            current: card.banks ? 0 : 1
            onChosen: card.banks = index === 0
        }
        Picker {
            width: parent.width
            text: "Slot " + card.slot
            onMoved: card.slot = Math.min(127, Math.max(0, card.slot + direction))
        }
        PushButton {
            objectName: "askSlot"
            width: parent.width
            text: "Ask what is in it"
            onConfirmed: Device.request(card.banks ? "requestIsSlotInfo" : "requestIwSlotInfo", [card.slot])
        }
        PushButton {
            width: parent.width
            warning: true
            text: "Hold to delete slot " + card.slot
            onConfirmed: Device.send(card.banks ? "deleteIsSlot" : "deleteIwSlot", [card.slot])
        }
        PushButton {
            width: parent.width
            warning: true
            text: "Hold to delete all slots"
            onConfirmed: Device.send("deleteAllSlots", [])
        }
        Caption {
            topPadding: 10
            text: "Last answer from the engine"
        }
        Text {
            text: card.lastAnswer
            color: Theme.text
            font.pixelSize: Theme.body
        }
    }
}
