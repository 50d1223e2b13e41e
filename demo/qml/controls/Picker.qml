import QtQuick 2.12
import "../style"

// A choice with two buttons. It only affects the screen; nothing is sent.
Rectangle {
    id: picker
    property alias text: label.text
    signal moved(int direction)

    width: 200
    height: Theme.touch
    radius: 10
    color: Theme.background
    border.color: Theme.line
    Text {
        id: label
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.touch - 12
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 12
        horizontalAlignment: Text.AlignHCenter
        color: Theme.text
        font.pixelSize: Theme.title
    }
    StepButton {
        sign: "\u2039"
        onStepped: picker.moved(-1)
    }
    StepButton {
        objectName: "next"
        anchors.right: parent.right
        sign: "\u203a"
        onStepped: picker.moved(1)
    }
}
