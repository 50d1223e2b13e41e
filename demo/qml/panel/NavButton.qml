import QtQuick 2.12
import "../style"

// The button of one page.
Item {
    id: button
    property string label
    property string iconPath
    property bool current: false
    readonly property color tint: current ? Theme.accent : area.pressed ? Theme.text : Theme.dim
    signal tapped()

    Rectangle {
        anchors { fill: parent; leftMargin: 8; rightMargin: 9; topMargin: 2; bottomMargin: 2 }
        radius: 12
        color: button.current || area.pressed ? Theme.raised : "transparent"
    }
    Rectangle {
        visible: button.current
        anchors.verticalCenter: parent.verticalCenter
        width: 4
        height: 32
        radius: 2
        color: Theme.accent
    }
    Icon {
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        path: button.iconPath
        color: button.tint
    }
    Text {
        x: 42
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - x - 11
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
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
