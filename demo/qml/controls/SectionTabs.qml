import QtQuick 2.12
import "../style"

// A row of equal segments, one of which is current. The owner sets the current one.
Rectangle {
    id: tabs
    property var names: []
    property int current: 0
    property int segmentWidth: 120
    signal chosen(int index)

    implicitWidth: names.length * segmentWidth + 8
    implicitHeight: Theme.touch + 4
    radius: 12
    color: Theme.background
    border.color: Theme.line

    Row {
        x: 4
        y: 4
        Repeater {
            model: tabs.names
            Rectangle {
                objectName: "segment-" + index
                width: (tabs.width - 8) / tabs.names.length
                height: tabs.height - 8
                radius: 9
                color: index === tabs.current ? Theme.accent : touch.pressed ? Theme.raised : "transparent"
                Text {
                    anchors.centerIn: parent
                    text: modelData
                    color: index === tabs.current ? Theme.accentInk : Theme.text
                    font.pixelSize: Theme.body
                    font.bold: index === tabs.current
                }
                MouseArea {
                    id: touch
                    anchors.fill: parent
                    anchors.margins: -4
                    onClicked: tabs.chosen(index)
                }
            }
        }
    }
}
