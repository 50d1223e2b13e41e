import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

// A large button. With `warning` it must be held, so that an accidental touch does not delete data.
Templates.Button {
    id: button
    property bool prominent: false
    property bool warning: false
    property int textSize: Theme.body
    signal confirmed()

    implicitWidth: Math.max(Theme.touch, label.implicitWidth + 36)
    implicitHeight: Theme.touch
    opacity: enabled ? 1 : 0.4
    onClicked: {
        if (!warning)
            confirmed();
    }
    onPressAndHold: {
        if (warning)
            confirmed();
    }

    background: Rectangle {
        radius: 10
        color: button.prominent ? (button.down ? "#ffc163" : Theme.accent)
                                : (button.down ? Theme.pressed : Theme.raised)
        border.color: button.warning ? Theme.alarm : button.prominent ? "transparent" : "#39414b"
    }
    contentItem: Text {
        id: label
        text: button.text
        color: button.prominent ? Theme.accentInk : button.warning ? Theme.alarm : Theme.text
        font.pixelSize: button.textSize
        font.bold: button.prominent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
