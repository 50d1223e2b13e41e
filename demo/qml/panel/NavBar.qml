import QtQuick 2.12
import "../style"

// One button for each page, along the left edge.
Rectangle {
    id: bar
    property var pages: []
    property int current: 0
    signal chosen(int index)

    width: 134
    color: Theme.surface
    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }
    Text {
        id: mark
        width: parent.width
        y: 22
        horizontalAlignment: Text.AlignHCenter
        text: "zelta"
        color: Theme.accent
        font.pixelSize: 22
        font.bold: true
        font.letterSpacing: 1
    }
    Column {
        y: 70
        Repeater {
            model: bar.pages
            NavButton {
                objectName: "nav-" + modelData.name
                width: bar.width
                height: (bar.height - 70 - 14) / bar.pages.length
                label: modelData.label
                iconPath: modelData.icon
                current: index === bar.current
                onTapped: bar.chosen(index)
            }
        }
    }
}
