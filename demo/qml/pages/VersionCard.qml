import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// The installed versions. The versions of the banks can be requested. The others are reported during a firmware update.
Card {
    id: card
    title: "Versions"
    readonly property var module: Device.module
    readonly property var lines: [
        { name: "Engine firmware", version: module.zeltaFwVersion },
        { name: "Trigger firmware", version: module.triggerFwVersion },
        { name: "Sound bank", version: module.soundBankVersion },
        { name: "Trigger bank", version: module.triggerBankVersion }
    ]

    Column {
        width: parent.width
        Repeater {
            model: 4
            Item {
                width: parent.width
                height: 44
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: card.lines[index].name
                    color: Theme.dim
                    font.pixelSize: Theme.body
                }
                Text {
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    text: card.lines[index].version
                    color: Theme.text
                    font.pixelSize: Theme.title
                }
                Rectangle {
                    anchors.bottom: parent.bottom
                    width: parent.width
                    height: 1
                    color: Theme.line
                }
            }
        }
    }
    Column {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        spacing: Theme.tight
        PushButton {
            objectName: "askSoundBank"
            width: parent.width
            text: "Read sound bank version"
            onConfirmed: Device.request("requestSoundBankVersion")
        }
        PushButton {
            objectName: "askTriggerBank"
            width: parent.width
            text: "Read trigger bank version"
            onConfirmed: Device.request("requestTriggerBankVersion")
        }
    }
}
