import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// Checks that all files of a bluetooth firmware exist before the first one is sent.
Card {
    id: card
    title: "Bluetooth files"
    property string answer: "Not checked yet"
    property bool failed: false

    function check() {
        var files = paths.text.split(",").map(function(each) { return each.trim(); });
        var result = Device.request("checkBtFw", [files]);
        failed = result !== 0;
        answer = result === 0 ? "Every file exists (0)." : "A file is missing (\u22121).";
    }

    Caption {
        text: "Paths, separated by commas"
        color: Theme.text
    }
    TextBox {
        id: paths
        objectName: "bluetoothPaths"
        y: 24
        width: parent.width
        hint: "/media/usb/bt.b00, ..."
    }
    Text {
        anchors { left: parent.left; right: parent.right; bottom: checker.top; bottomMargin: Theme.gap }
        wrapMode: Text.Wrap
        text: card.answer
        color: card.failed ? Theme.alarm : Theme.text
        font.pixelSize: Theme.body
    }
    PushButton {
        id: checker
        objectName: "files-check"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        text: "Check that they exist"
        onConfirmed: card.check()
    }
}
