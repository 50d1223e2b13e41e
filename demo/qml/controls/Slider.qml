import QtQuick 2.12
import "../settings"
import "../style"

// A horizontal slider for one parameter. The cap moves by the distance that the finger moves.
Item {
    id: slider
    property Parameter parameter
    objectName: parameter ? parameter.method : ""
    height: Theme.touch

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 8
        radius: 4
        color: Theme.background
        border.color: Theme.line
        Rectangle {
            width: cap.x + cap.width / 2
            height: parent.height
            radius: 4
            color: Theme.accent
            opacity: 0.85
        }
    }
    Rectangle {
        id: cap
        x: slider.parameter.position * (slider.width - width)
        anchors.verticalCenter: parent.verticalCenter
        width: 34
        height: 44
        radius: 8
        color: area.pressed ? Theme.pressed : Theme.raised
        border.color: area.pressed ? Theme.accent : "#3b434d"
        Rectangle {
            anchors.centerIn: parent
            width: 3
            height: 22
            radius: 1.5
            color: Theme.accent
        }
    }
    MouseArea {
        id: area
        anchors.fill: parent
        preventStealing: true
        property real startX
        property real startPosition
        onPressed: {
            startX = mouse.x;
            startPosition = slider.parameter.position;
        }
        onPositionChanged: slider.parameter.setPosition(startPosition + (mouse.x - startX) / (width - cap.width))
    }
}
