import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// SysEx messages to the engine, and the last SysEx message and test command from it.
Card {
    id: card
    title: "SysEx"
    property string sent: "nothing"
    // Bytes in hexadecimal, or null if the text is something else.
    readonly property var bytes: bytesOf(message.text)

    function bytesOf(text) {
        var parts = text.trim().split(/[\s,]+/);
        var valid = parts.every(function(part) { return /^[0-9a-fA-F]{1,2}$/.test(part); });
        return valid ? parts.map(function(part) { return parseInt(part, 16); }) : null;
    }
    function send() {
        if (bytes === null)
            return;
        Device.send("sendSysEx", [bytes]);
        sent = bytes.map(function(each) { return ("0" + each.toString(16).toUpperCase()).slice(-2); }).join(" ");
    }

    Caption {
        text: "Bytes in hexadecimal, without F0 and F7"
        color: Theme.text
    }
    TextBox {
        id: message
        objectName: "sysExBytes"
        y: 24
        width: parent.width
        text: "7E 7F 06 01"
        hint: "7E 7F 06 01"
    }
    PushButton {
        id: sender
        objectName: "sendSysEx"
        anchors { left: parent.left; right: parent.right; top: message.bottom; topMargin: Theme.tight }
        enabled: card.bytes !== null
        text: "Send"
        onConfirmed: card.send()
    }
    Column {
        anchors { left: parent.left; right: parent.right; top: sender.bottom; topMargin: Theme.gap }
        spacing: 4
        Repeater {
            model: [
                { name: "Sent", text: card.sent },
                { name: "Received, hexadecimal text of its events", text: Device.log.lastSysEx || "nothing" },
                { name: "Test command received", text: Device.log.lastTestCommand || "nothing" }
            ]
            Column {
                width: parent.width
                bottomPadding: Theme.tight
                Caption { text: modelData.name }
                Text {
                    width: parent.width
                    wrapMode: Text.WrapAnywhere
                    maximumLineCount: 2
                    elide: Text.ElideRight
                    text: modelData.text
                    color: Theme.text
                    font.pixelSize: Theme.body
                }
            }
        }
    }
}
