import QtQuick 2.12
import "../controls"
import "../style"

// The numbers of an answer and a button that sets them.
Item {
    id: row
    property string name // the command without its numbers
    property string label
    property var labels: []
    // The numbers that the engine answers now.
    readonly property var answer: panel.answers[name]
    readonly property string key: name.replace(" ", "-")

    width: parent.width
    height: Theme.row

    function send() {
        var numbers = [];
        for (var i = 0; i < boxes.count; ++i)
            numbers.push(boxes.itemAt(i).typed());
        panel.run(name + " " + numbers.join(" "));
    }

    Caption {
        width: numbers.x - Theme.tight
        height: parent.height
        text: row.label
    }
    Row {
        id: numbers
        x: parent.width - width
        spacing: Theme.tight
        Repeater {
            id: boxes
            model: row.labels
            Row {
                spacing: Theme.tight
                // Changes only with this number, so that other commands leave alone what is typed.
                readonly property int number: row.answer[index]
                function typed() {
                    return box.typed();
                }
                Caption {
                    height: Theme.row
                    text: modelData
                }
                NumberBox {
                    id: box
                    objectName: row.key + "-" + modelData
                    value: number
                    onEntered: row.send()
                }
            }
        }
        PushButton {
            objectName: row.key + "-set"
            text: "Set"
            onClicked: row.send()
        }
    }
}
