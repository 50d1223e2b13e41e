import QtQuick 2.12
import "../style"

// A switch or a plug of the module. A press of an aux pad ends at once, so the light fades slowly.
Item {
    id: lamp
    property bool lit: false
    property string label
    property real glow: 0

    width: Math.max(48, name.implicitWidth + 8)
    height: 48
    onLitChanged: {
        fading.stop();
        glow = 1;
        if (!lit)
            fading.start();
    }

    NumberAnimation {
        id: fading
        target: lamp; property: "glow"; to: 0; duration: 600
    }
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 8
        width: 14
        height: 14
        radius: 7
        color: Theme.background
        border.color: "#3b434d"
        Rectangle {
            anchors.fill: parent
            radius: 7
            color: Theme.accent
            opacity: lamp.glow
        }
    }
    Caption {
        id: name
        anchors.horizontalCenter: parent.horizontalCenter
        y: 30
        text: lamp.label
        font.pixelSize: 11
    }
}
