// Sends a file and says how it ended and what to do.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 480
    height: 320
    property alias kind: upload.kind
    property alias source: upload.source
    property alias slot: upload.slot
    property string result

    Engine {
        id: drums
    }
    FileTransfer {
        id: upload
        objectName: "upload"
        engine: drums
        kind: FileTransfer.SoundBank
        onFinished: screen.result = screen.advice()
    }

    function send() {
        result = "";
        upload.start();
    }
    function advice() {
        switch (upload.state) {
        case FileTransfer.Done:
            return "Sent.";
        case FileTransfer.NotNewer:
            return "Nothing to do. " + upload.message;
        case FileTransfer.Idle:
            return "Not sent. " + upload.message;
        case FileTransfer.Refused:
            return upload.reason === FileTransfer.MemoryFull
                    ? "Delete samples, then send the file again. " + upload.message
                    : "This file is not for this engine. " + upload.message;
        }
        switch (upload.reason) {
        case FileTransfer.Damaged:
        case FileTransfer.Aborted:
            return "Send the file again. " + upload.message;
        case FileTransfer.NotAcknowledged:
            return "It is not known whether the engine has the file. Send it again. " + upload.message;
        case FileTransfer.EngineSilent:
            return "Switch the engine off and on. " + upload.message;
        case FileTransfer.NoEngine:
            return "Start the screen again. " + upload.message;
        case FileTransfer.UnknownKind:
            return "Choose the kind of the file. " + upload.message;
        case FileTransfer.SlotOutOfRange:
            return "Change the slot. " + upload.message;
        default:
            return "Choose another file. " + upload.message;
        }
    }

    Column {
        anchors.centerIn: parent
        width: 400
        spacing: 16
        TextField {
            width: parent.width
            placeholderText: "/media/usb/kit.bin"
            onTextEdited: upload.source = text
        }
        Row {
            spacing: 16
            Button {
                text: "Send"
                enabled: !upload.active
                onClicked: screen.send()
            }
            Button {
                objectName: "cancel"
                // Only a file that has not begun can be taken back.
                text: "Cancel"
                enabled: upload.state === FileTransfer.Waiting
                onClicked: upload.cancel()
            }
        }
        ProgressBar {
            width: parent.width
            value: upload.progress
        }
        Text {
            width: parent.width
            wrapMode: Text.Wrap
            text: upload.state === FileTransfer.Repeating ? "The engine asks for data again."
                  : upload.state === FileTransfer.Finishing ? "Waiting for the engine to store the file."
                  : upload.active && upload.secondsLeft > 0 ? Math.ceil(upload.secondsLeft) + " s left"
                  : screen.result
        }
    }
}
