import QtQuick 2.12
import "../controls"
import "../style"

// A meter that is also a slider; 70 is full scale. The label is upright or, where there is room, horizontal.
Item {
    id: bar
    property string label
    property bool upright: true
    readonly property int level: slider.last
    signal moved()

    function show(level) {
        slider.show(Math.min(70, level));
    }

    LevelSlider {
        id: slider
        objectName: "level"
        orientation: Qt.Vertical
        anchors { top: figure.bottom; bottom: name.top; bottomMargin: Theme.tight; horizontalCenter: parent.horizontalCenter }
        to: 70
        stepSize: 1
        onChanged: bar.moved()
    }
    Text {
        id: figure
        width: parent.width
        height: 18
        horizontalAlignment: Text.AlignHCenter
        text: bar.level
        color: Theme.dim
        font.pixelSize: 11
    }
    Item {
        id: name
        y: parent.height - height
        width: parent.width
        height: bar.upright ? 58 : 16
        Text {
            anchors.centerIn: parent
            rotation: bar.upright ? -90 : 0
            text: bar.label
            color: Theme.text
            font.pixelSize: 11
        }
    }
}
