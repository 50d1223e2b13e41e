import QtQuick 2.12
import "../controls"
import "../style"

// What the engine answers when the module asks.
Item {
    id: page

    Column {
        width: parent.width
        spacing: Theme.gap
        Caption { text: "Answers to the module's questions"; color: Theme.text; font.bold: true }
        AnswerRow { name: "version zelta"; label: "Sound engine version"; labels: ["major", "minor"] }
        AnswerRow { name: "version trigger"; label: "Trigger board version"; labels: ["major", "minor"] }
        AnswerRow { name: "version soundbank"; label: "Sound bank version"; labels: ["major", "minor"] }
        AnswerRow { name: "version triggerbank"; label: "Trigger bank version"; labels: ["major", "minor"] }
        AnswerRow { name: "hihat-raw"; label: "Hi-hat raw value"; labels: ["value"] }
        Caption { text: "Reported at once, and when the module asks"; color: Theme.text; font.bold: true }
        AnswerRow { name: "flash"; label: "Memory"; labels: ["high", "low"] }
        Caption { text: "An electronic drum kit that plays the screen"; color: Theme.text; font.bold: true }
        KitRow { width: parent.width }
    }
}
