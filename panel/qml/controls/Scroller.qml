import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

Templates.ScrollBar {
    id: bar
    policy: Templates.ScrollBar.AsNeeded
    implicitWidth: 10
    minimumSize: 0.08
    visible: size < 1
    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: bar.pressed ? Theme.accent : Theme.pressed
    }
}
