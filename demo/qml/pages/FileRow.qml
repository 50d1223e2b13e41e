import QtQuick 2.12
import "../style"

// One line of the file list.
Rectangle {
    id: row
    property alias name: nameText.text
    property alias aside: asideText.text
    property bool current: false
    signal tapped()

    height: 48
    radius: 8
    color: current ? Theme.accentDeep : area.pressed ? Theme.raised : "transparent"
    Text {
        id: nameText
        anchors { left: parent.left; leftMargin: 12; right: asideText.left; rightMargin: 12 }
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.text
        elide: Text.ElideMiddle
        font.pixelSize: Theme.body
    }
    Text {
        id: asideText
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        color: Theme.dim
        font.pixelSize: Theme.caption
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: row.tapped()
    }
}
