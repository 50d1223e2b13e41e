// Shows the four versions, and updates all four from a folder.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 640
    height: 320
    // With engine.bin, board.bin, sounds.bin and triggers.bin. A missing file is not an obstacle for the others.
    property string folder: "/media/usb"
    property int remaining: 0

    Engine {
        id: drums
        Component.onCompleted: screen.askForBanks()
    }
    // Only the banks can be asked. The engine reports the versions of the firmware at the start of an update.
    function askForBanks() {
        drums.zelta.requestSoundBankVersion();
        drums.zelta.requestTriggerBankVersion();
    }
    // The trigger board and the trigger bank show their version as one number: "V 65541" is 1.05.
    function readable(text) {
        var number = Number(text.slice(2));
        return Number.isInteger(number) ? (number >> 16) + "." + ("0" + (number & 0xffff)).slice(-2) : text.slice(2);
    }
    // All four wait in one queue. The banks come first, because the module pauses for 20 s after the engine's firmware.
    function update() {
        remaining = parts.count;
        for (var i = parts.count - 1; i >= 0; --i)
            parts.itemAt(i).transfer.start();
    }
    function finishOne() {
        remaining -= 1;
        if (remaining === 0)
            askForBanks();
    }

    Column {
        anchors.centerIn: parent
        spacing: 16
        Repeater {
            id: parts
            model: [
                { name: "Engine", file: "engine.bin", kind: FileTransfer.EngineFirmware, version: "zeltaFwVersion" },
                { name: "Trigger board", file: "board.bin", kind: FileTransfer.TriggerFirmware,
                  version: "triggerFwVersion" },
                { name: "Sound bank", file: "sounds.bin", kind: FileTransfer.SoundBank, version: "soundBankVersion" },
                { name: "Trigger bank", file: "triggers.bin", kind: FileTransfer.TriggerBank,
                  version: "triggerBankVersion" }
            ]
            Text {
                objectName: modelData.name
                readonly property FileTransfer transfer: FileTransfer {
                    engine: drums
                    kind: modelData.kind
                    source: screen.folder + "/" + modelData.file
                    onFinished: screen.finishOne()
                }
                readonly property bool isTrigger: modelData.version.indexOf("trigger") === 0
                readonly property string version: drums.zelta[modelData.version]
                text: modelData.name + ": " + (isTrigger ? screen.readable(version) : version.slice(2)) + "  "
                      + (transfer.active ? Math.round(transfer.progress * 100) + " %" : transfer.message)
            }
        }
        Button {
            text: "Update"
            enabled: screen.remaining === 0
            onClicked: screen.update()
        }
    }
}
