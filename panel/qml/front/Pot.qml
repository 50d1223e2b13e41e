import QtQuick 2.12
import "../controls"
import "../style"

// A pot of the front panel. Each click, turn of the wheel or arrow key is one step.
Item {
    id: pot
    property int number: 0

    objectName: "pot-" + number
    implicitWidth: 110
    implicitHeight: Theme.row
    activeFocusOnTab: true

    function turn(sign) {
        panel.run("pot " + number + " " + sign);
    }

    Keys.onUpPressed: turn("+")
    Keys.onRightPressed: turn("+")
    Keys.onDownPressed: turn("-")
    Keys.onLeftPressed: turn("-")

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.background
        border.color: Theme.line
        FocusFrame { shown: pot.activeFocus }
    }
    Repeater {
        model: ["-", "+"]
        PushButton {
            objectName: index === 0 ? "less" : "more"
            x: index === 0 ? 0 : pot.width - width
            width: 30
            height: pot.height
            focusPolicy: Qt.NoFocus
            text: index === 0 ? "\u2212" : "+"
            onClicked: {
                pot.forceActiveFocus();
                pot.turn(modelData);
            }
        }
    }
    Text {
        anchors.centerIn: parent
        text: "Pot " + (pot.number + 1)
        color: Theme.text
        font.pixelSize: Theme.small
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: pot.turn(wheel.angleDelta.y > 0 ? "+" : "-")
    }
}
