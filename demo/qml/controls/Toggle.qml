import QtQuick 2.12
import "../settings"
import "../style"

// An on/off switch for one parameter, with its name.
Item {
    id: toggle
    property Parameter parameter
    property string label: parameter ? parameter.label : ""
    readonly property bool lit: parameter ? parameter.isOn : false

    objectName: parameter ? parameter.method : ""
    implicitWidth: housing.width + (name.text.length > 0 ? name.implicitWidth + 12 : 0)
    implicitHeight: Theme.touch

    Rectangle {
        id: housing
        anchors.verticalCenter: parent.verticalCenter
        width: 60
        height: 32
        radius: 16
        color: toggle.lit ? Theme.accent : Theme.background
        border.color: toggle.lit ? Theme.accent : "#39414b"
        Behavior on color { ColorAnimation { duration: Theme.quick } }
        Rectangle {
            x: toggle.lit ? parent.width - width - 4 : 4
            y: 4
            width: 24
            height: 24
            radius: 12
            color: toggle.lit ? Theme.accentInk : Theme.dim
            Behavior on x { NumberAnimation { duration: Theme.quick } }
        }
    }
    Text {
        id: name
        anchors { left: housing.right; leftMargin: 12; verticalCenter: parent.verticalCenter }
        text: toggle.label
        color: toggle.lit ? Theme.text : Theme.dim
        font.pixelSize: Theme.body
    }
    MouseArea {
        anchors.fill: parent
        onClicked: toggle.parameter.toggle()
    }
}
