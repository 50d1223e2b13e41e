import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// Input, gain reduction (downwards) and output of one compressor, left and right.
Row {
    id: meters
    property string prefix: "masterCp"
    readonly property var module: Device.module
    readonly property var columns: [{ name: "In", key: "In" }, { name: "GR", key: "Gr" }, { name: "Out", key: "Out" }]

    Repeater {
        model: meters.columns
        Item {
            id: column
            readonly property real levelLeft: meters.module[meters.prefix + modelData.key + "L"]
            readonly property real levelRight: meters.module[meters.prefix + modelData.key + "R"]
            readonly property bool reduction: index === 1
            width: meters.width / 3
            height: meters.height
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                height: parent.height - 48
                spacing: 5
                Meter {
                    width: 18
                    height: parent.height
                    falling: column.reduction
                    tint: column.reduction ? Theme.text : Theme.accent
                    level: column.levelLeft
                }
                Meter {
                    width: 18
                    height: parent.height
                    falling: column.reduction
                    tint: column.reduction ? Theme.text : Theme.accent
                    level: column.levelRight
                }
            }
            Text {
                anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 20 }
                text: Math.max(column.levelLeft, column.levelRight).toFixed(2)
                color: Theme.dim
                font.pixelSize: Theme.caption
            }
            Caption {
                anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom }
                text: modelData.name
                color: Theme.text
            }
        }
    }
}
