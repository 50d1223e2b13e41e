import QtQuick 2.12
import "controls"
import "style"

// The last command, a field to type one, and the recording.
Rectangle {
    id: bar
    property string saved
    property bool saveFailed: false

    height: 66
    color: Theme.surface

    function focusCommand() {
        field.forceActiveFocus();
    }
    function typed() {
        if (field.length > 0 && panel.run(field.text))
            field.clear();
    }
    function save() {
        var problem = panel.recorder.save(path.text);
        saveFailed = problem !== "";
        saved = saveFailed ? problem : "saved as " + path.text;
    }

    Text {
        id: last
        objectName: "last-command"
        x: Theme.gap
        y: 6
        width: Math.min(implicitWidth, parent.width / 2)
        height: 20
        text: panel.lastCommand === "" ? "Each action shows its command here." : panel.lastCommand
        color: panel.lastCommand === "" ? Theme.dim : Theme.sent
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
        font { pixelSize: Theme.body; family: Theme.mono }
    }
    Caption {
        objectName: "last-answer"
        anchors { left: last.right; leftMargin: 14; right: note.left; rightMargin: 14 }
        y: 6
        height: 20
        text: panel.lastAnswer
        color: panel.lastFailed ? Theme.alarm : Theme.dim
    }
    Caption {
        id: note
        objectName: "saved"
        anchors { right: parent.right; rightMargin: Theme.gap }
        y: 6
        width: Math.min(implicitWidth, parent.width * 0.45)
        height: 20
        elide: Text.ElideMiddle
        text: bar.saved
        color: bar.saveFailed ? Theme.alarm : Theme.dim
    }
    TextBox {
        id: field
        objectName: "command"
        x: Theme.gap
        y: 31
        width: parent.width / 2 - 2 * Theme.gap
        font.family: Theme.mono
        placeholderText: "Type a command; help lists them"
        onAccepted: bar.typed()
    }
    Caption {
        id: count
        anchors { left: field.right; leftMargin: Theme.gap }
        y: 31
        width: 104
        height: Theme.row
        horizontalAlignment: Text.AlignRight
        text: panel.recorder.count + (panel.recorder.count === 1 ? " command" : " commands")
    }
    TextBox {
        id: path
        objectName: "scenario-path"
        anchors { left: count.right; leftMargin: Theme.gap; right: save.left; rightMargin: Theme.tight }
        y: 31
        text: "~/recorded.scenario"
        onAccepted: bar.save()
    }
    PushButton {
        id: save
        objectName: "scenario-save"
        anchors { right: fresh.left; rightMargin: Theme.tight }
        y: 31
        text: "Save as scenario"
        onClicked: bar.save()
    }
    PushButton {
        id: fresh
        objectName: "scenario-new"
        anchors { right: parent.right; rightMargin: Theme.gap }
        y: 31
        text: "New"
        onClicked: {
            panel.restartRecording();
            bar.saved = "";
        }
    }
}
