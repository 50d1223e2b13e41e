import QtQuick 2.12
import "controls"
import "style"

// The addresses of both sides, the drummer and the count of violations.
Rectangle {
    id: header
    height: 44
    color: Theme.surface

    Row {
        x: Theme.gap
        height: parent.height
        spacing: 18
        Caption {
            height: parent.height
            text: "Simulated engine"
            color: Theme.text
            font { pixelSize: Theme.title; bold: true }
        }
        Caption {
            height: parent.height
            text: "listens on " + panel.listening
        }
        Row {
            height: parent.height
            spacing: 6
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 9
                height: 9
                radius: 4.5
                color: panel.module === "" ? Theme.line : Theme.accent
            }
            Caption {
                height: parent.height
                text: panel.module === "" ? "no module yet" : "module " + panel.module
            }
        }
        Caption {
            height: parent.height
            visible: panel.violations > 0
            text: "violations: " + panel.violations
            color: Theme.alarm
        }
    }
    PushButton {
        objectName: "groove"
        anchors { right: parent.right; rightMargin: Theme.gap; verticalCenter: parent.verticalCenter }
        text: panel.groove ? "Drummer plays" : "Drummer pauses"
        lit: panel.groove
        width: 140
        onClicked: panel.run(panel.groove ? "groove off" : "groove on")
    }
}
