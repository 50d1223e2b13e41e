import QtQuick 2.12
import "../device"
import "../style"

// The line below each page: the connection, and the module's pots, switches and plugs.
Rectangle {
    id: strip
    property alias address: connection.address
    readonly property alias connectionText: connection.text
    readonly property var module: Device.module

    height: 60
    color: Theme.surface
    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    ConnectionLine {
        id: connection
        x: Theme.margin
        anchors.verticalCenter: parent.verticalCenter
    }
    Row {
        anchors { right: parent.right; rightMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        spacing: 6
        Repeater {
            model: 4
            PotView { pot: index }
        }
        Item { width: 14; height: 1 }
        SwitchLamp { label: "Power"; lit: strip.module.powerPressed }
        SwitchLamp { label: "Home"; lit: strip.module.homeButtonPressed }
        SwitchLamp { label: "Foot 1"; lit: strip.module.foot1Pressed }
        SwitchLamp { label: "Foot 2"; lit: strip.module.foot2Pressed }
        SwitchLamp { label: "Aux 3"; lit: strip.module.aux3Pressed }
        SwitchLamp { label: "Aux 4"; lit: strip.module.aux4Pressed }
        SwitchLamp { label: "Phones"; lit: strip.module.hpDetectPressed }
        SwitchLamp { label: "Mix in"; lit: strip.module.mixInDetectPressed }
    }
}
