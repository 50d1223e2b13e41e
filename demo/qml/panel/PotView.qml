import QtQuick 2.12
import "../device"
import "../style"

// A pot of the front panel. It has no end stops, so only the direction of a turn is shown.
Item {
    id: view
    property int pot: 0
    property int steps: 0

    width: 34
    height: 48

    function turn(which, direction) {
        if (which !== pot)
            return;
        steps += direction;
        lit.opacity = 1;
        fading.restart();
    }
    Component.onCompleted: Device.potTurned.connect(turn)
    Component.onDestruction: Device.potTurned.disconnect(turn)

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 2
        width: 26
        height: 26
        radius: 13
        color: Theme.raised
        border.color: "#3b434d"
        rotation: view.steps * 15
        Rectangle {
            id: lit
            anchors.fill: parent
            radius: 13
            color: "transparent"
            border.color: Theme.accent
            border.width: 2
            opacity: 0
            NumberAnimation {
                id: fading
                target: lit; property: "opacity"; to: 0; duration: 700
            }
        }
        Rectangle {
            x: parent.width / 2 - 1
            y: 4
            width: 2
            height: 7
            color: Theme.text
        }
    }
    Caption {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 30
        text: "P" + (view.pot + 1)
        font.pixelSize: 11
    }
}
