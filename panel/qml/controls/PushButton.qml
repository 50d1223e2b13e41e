import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

Templates.Button {
    id: button
    property bool lit: checked
    property int textSize: Theme.body

    implicitWidth: label.implicitWidth + 20
    implicitHeight: Theme.row
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.45
    Keys.onReturnPressed: activate()
    Keys.onEnterPressed: activate()

    function activate() {
        if (checkable) {
            toggle();
            toggled();
        }
        clicked();
    }

    background: Rectangle {
        radius: Theme.radius
        color: button.lit ? Theme.accent : button.down ? Theme.pressed : Theme.raised
        border.color: button.lit ? Theme.accent : Theme.line
        FocusFrame { shown: button.activeFocus }
    }
    contentItem: Text {
        id: label
        text: button.text
        color: button.lit ? Theme.accentInk : Theme.text
        font.pixelSize: button.textSize
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
