import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

Templates.TextField {
    id: box

    implicitWidth: 160
    implicitHeight: Theme.row
    leftPadding: 8
    rightPadding: 8
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    selectByMouse: true
    font.pixelSize: Theme.body
    verticalAlignment: Text.AlignVCenter

    background: Rectangle {
        radius: Theme.radius
        color: Theme.background
        border.color: Theme.line
        FocusFrame { shown: box.activeFocus }
        Text {
            x: box.leftPadding
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            visible: box.length === 0
            text: box.placeholderText
            elide: Text.ElideRight
            color: Theme.dim
            font.pixelSize: box.font.pixelSize
        }
    }
}
