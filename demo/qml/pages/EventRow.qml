import QtQuick 2.12
import "../style"

// One event: its number, its name and its values.
Item {
    height: 28
    Text {
        id: nameText
        width: 140
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        text: name
        color: Theme.dim
        font.pixelSize: Theme.caption
    }
    Text {
        anchors { left: nameText.right; leftMargin: 8; right: numberText.left; rightMargin: 8 }
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        text: values
        color: Theme.text
        font.pixelSize: Theme.caption
    }
    Text {
        id: numberText
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        text: number
        color: Theme.faint
        font.pixelSize: Theme.caption
    }
}
