import QtQuick 2.12
import "../style"

// A line of text that can be edited, with a hint while it is empty.
Rectangle {
    id: box
    property alias text: input.text
    property alias maximumLength: input.maximumLength
    property string hint

    height: Theme.touch
    radius: 10
    color: Theme.background
    border.color: input.activeFocus ? Theme.accent : Theme.line
    TextInput {
        id: input
        anchors { fill: parent; leftMargin: 14; rightMargin: 14 }
        verticalAlignment: TextInput.AlignVCenter
        clip: true
        color: Theme.text
        selectionColor: Theme.accentDeep
        selectByMouse: true
        font.pixelSize: Theme.body
    }
    Text {
        visible: input.text.length === 0
        anchors { fill: parent; leftMargin: 14; rightMargin: 14 }
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: box.hint
        color: Theme.faint
        font.pixelSize: Theme.body
    }
}
