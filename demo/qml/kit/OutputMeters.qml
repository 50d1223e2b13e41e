import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// All output levels, in the order in which the engine reports them.
Item {
    id: meters
    readonly property var module: Device.module
    readonly property var groups: [
        { name: "Master", levels: [module.masterOutL, module.masterOutR] },
        { name: "Mon", levels: [module.monitorOutL, module.monitorOutR] },
        { name: "Phones", levels: [module.headOutL, module.headOutR] },
        { name: "Direct outs 1\u20138", levels: [module.out1Level, module.out2Level, module.out3Level, module.out4Level,
                                      module.out5Level, module.out6Level, module.out7Level, module.out8Level] },
        { name: "S/PDIF", levels: [module.spdifLLevel, module.spdifRLevel] },
        { name: "USB", levels: [module.usbInLLevel, module.usbInRLevel] }
    ]
    readonly property int bars: 18
    readonly property real between: 12
    readonly property real barSlot: (width - between * (groups.length - 1)) / bars

    Row {
        spacing: meters.between
        Repeater {
            // A fixed number, so that a changed level does not create the bars again.
            model: 6
            Column {
                id: group
                readonly property var about: meters.groups[index]
                readonly property int size: index === 3 ? 8 : 2
                width: size * meters.barSlot
                spacing: Theme.tight
                Row {
                    Repeater {
                        model: group.size
                        Item {
                            width: meters.barSlot
                            height: meters.height - 26
                            Meter {
                                anchors.horizontalCenter: parent.horizontalCenter
                                width: Math.min(12, parent.width - 3)
                                height: parent.height
                                level: group.about.levels[index]
                            }
                        }
                    }
                }
                Caption {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: group.about.name
                    font.pixelSize: 11
                }
            }
        }
    }
}
