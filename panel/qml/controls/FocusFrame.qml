import QtQuick 2.12
import "../style"

// Shows around its parent which control has the keyboard focus.
Rectangle {
    property bool shown: false

    visible: shown
    anchors.fill: parent
    anchors.margins: -2
    radius: Theme.radius + 1
    color: "transparent"
    border { color: Theme.accent; width: 2 }
}
