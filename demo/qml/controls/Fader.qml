import QtQuick 2.12
import "../settings"
import "../style"

// A vertical fader for one parameter. The cap moves by the distance that the finger moves, so that a touch never makes
// the level jump.
Item {
    id: fader
    property Parameter parameter
    property string label: parameter ? parameter.label : ""
    property real levelLeft: -1
    property real levelRight: -1
    readonly property bool metered: levelLeft >= 0

    objectName: parameter ? parameter.method : ""
    implicitWidth: 84
    implicitHeight: 220

    Caption {
        id: name
        width: parent.width
        text: fader.label
        color: Theme.text
    }
    Item {
        id: track
        anchors { top: name.bottom; topMargin: Theme.tight; bottom: figure.top; bottomMargin: Theme.tight }
        width: parent.width

        readonly property real travel: height - cap.height
        readonly property real shown: fader.parameter ? fader.parameter.position : 0

        Repeater {
            model: 11
            Rectangle {
                x: track.width / 2 - width - 10
                y: cap.height / 2 + index / 10 * track.travel
                width: index % 5 === 0 ? 10 : 6
                height: 1
                color: Theme.line
            }
        }
        Rectangle {
            id: slot
            x: (track.width - width) / 2
            width: 6
            height: track.height
            radius: 3
            color: Theme.background
            border.color: Theme.line
        }
        Rectangle {
            anchors { bottom: slot.bottom; horizontalCenter: slot.horizontalCenter }
            width: 6
            height: track.height - cap.y - cap.height / 2
            radius: 3
            color: Theme.accent
            opacity: 0.85
        }
        Meter {
            visible: fader.metered
            x: track.width / 2 + 26
            width: 6
            height: track.height
            level: Math.max(0, fader.levelLeft)
        }
        Meter {
            visible: fader.metered && fader.levelRight >= 0
            x: track.width / 2 + 34
            width: 6
            height: track.height
            level: Math.max(0, fader.levelRight)
        }
        Rectangle {
            id: cap
            x: (track.width - width) / 2
            y: (1 - track.shown) * track.travel
            width: 44
            height: 28
            radius: 7
            color: area.pressed ? Theme.pressed : Theme.raised
            border.color: area.pressed ? Theme.accent : "#3b434d"
            Rectangle {
                anchors.centerIn: parent
                width: parent.width - 14
                height: 3
                radius: 1.5
                color: Theme.accent
            }
        }
        MouseArea {
            id: area
            anchors.fill: parent
            preventStealing: true
            property real startY
            property real startPosition
            onPressed: {
                startY = mouse.y;
                startPosition = track.shown;
            }
            onPositionChanged: fader.parameter.setPosition(startPosition - (mouse.y - startY) / track.travel)
            onWheel: fader.parameter.set(fader.parameter.value + (wheel.angleDelta.y > 0 ? 1 : -1) * fader.parameter.step)
        }
    }
    Text {
        id: figure
        anchors.bottom: parent.bottom
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: fader.parameter ? fader.parameter.text : ""
        color: area.pressed ? Theme.accent : Theme.dim
        font.pixelSize: Theme.body
    }
}
