import QtQuick 2.12
import "../style"

// One page of the navigation bar.
Item {
    id: button
    property string label
    property string iconPath
    property bool current: false
    readonly property color tint: current ? Theme.accent : area.pressed ? Theme.text : Theme.dim
    signal tapped()

    Rectangle {
        anchors { fill: parent; leftMargin: 8; rightMargin: 9; topMargin: 3; bottomMargin: 3 }
        radius: 12
        color: button.current || area.pressed ? Theme.raised : "transparent"
    }
    Rectangle {
        visible: button.current
        anchors.verticalCenter: parent.verticalCenter
        width: 4
        height: 36
        radius: 2
        color: Theme.accent
    }
    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height / 2 - 30
        path: button.iconPath
        color: button.tint
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height / 2 + 8
        text: button.label
        color: button.tint
        font.pixelSize: Theme.caption
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.tapped()
    }
}
