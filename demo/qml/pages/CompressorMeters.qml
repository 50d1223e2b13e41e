import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// Input, gain reduction (drawn downwards) and output of one compressor, left and right.
Row {
    id: meters
    property string prefix: "masterCp"
    readonly property var module: Device.module
    // Input, gain reduction and output, each left and right.
    readonly property var levels: ({
        masterCp: [[module.masterCpInL, module.masterCpInR], [module.masterCpGrL, module.masterCpGrR],
                   [module.masterCpOutL, module.masterCpOutR]],
        monitorCp: [[module.monitorCpInL, module.monitorCpInR], [module.monitorCpGrL, module.monitorCpGrR],
                    [module.monitorCpOutL, module.monitorCpOutR]],
        headCp: [[module.headCpInL, module.headCpInR], [module.headCpGrL, module.headCpGrR],
                 [module.headCpOutL, module.headCpOutR]],
        padCp: [[module.padCpInL, module.padCpInR], [module.padCpGrL, module.padCpGrR],
                [module.padCpOutL, module.padCpOutR]]
    })[prefix]

    Repeater {
        model: ["In", "GR", "Out"]
        Item {
            id: column
            readonly property real levelLeft: meters.levels[index][0]
            readonly property real levelRight: meters.levels[index][1]
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
                text: modelData
                color: Theme.text
            }
        }
    }
}
