import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

// One end of a stepper.
Templates.AbstractButton {
    id: button
    property string sign
    signal stepped()

    width: Theme.touch
    height: Theme.touch
    autoRepeat: true
    // A held button emits clicked() for each repetition.
    onClicked: stepped()

    background: Rectangle {
        radius: 10
        color: button.down ? Theme.pressed : Theme.raised
    }
    contentItem: Text {
        text: button.sign
        color: button.down ? Theme.accent : Theme.text
        font.pixelSize: 22
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
