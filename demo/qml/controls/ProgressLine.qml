import QtQuick 2.12
import "../style"

// A progress bar, 0 to 1.
Rectangle {
    property real part: 0
    property color tint: Theme.accent

    implicitHeight: 14
    radius: height / 2
    color: Theme.background
    border.color: Theme.line
    Rectangle {
        visible: width > 2
        width: Math.min(1, Math.max(0, parent.part)) * parent.width
        height: parent.height
        radius: height / 2
        color: parent.tint
    }
}
