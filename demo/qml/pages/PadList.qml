import QtQuick 2.12
import "../controls"
import "../device/pads.js" as Pads
import "../style"

// All pads, and the zones of the selected pad.
Card {
    id: list
    property int pad: 0
    property int zone: 0
    signal padChosen(int index)
    signal zoneChosen(int index)

    width: 232
    title: "Pad"

    Grid {
        id: grid
        columns: 2
        spacing: Theme.tight
        Repeater {
            model: Pads.all
            PushButton {
                objectName: "choose-" + index
                width: 96
                height: Theme.touch + 4
                text: modelData.name
                prominent: index === list.pad
                onConfirmed: list.padChosen(index)
            }
        }
    }
    Caption {
        anchors { left: parent.left; bottom: zones.top; bottomMargin: Theme.tight }
        text: "Zone"
        color: Theme.text
    }
    SectionTabs {
        id: zones
        anchors.bottom: parent.bottom
        width: parent.width
        names: Pads.zoneNames(list.pad)
        current: list.zone
        onChosen: list.zoneChosen(index)
    }
}
