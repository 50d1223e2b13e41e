import QtQuick 2.12
import "../device/pads.js" as Pads
import "../style"

// Selects a pad and one of its zones. `note` is the note that addresses the settings of the zone.
Row {
    id: picker
    property int pad: 1
    property int zone: 0
    readonly property int note: Pads.noteOf(pad, zone)

    spacing: Theme.tight

    function choosePad(index) {
        var count = Pads.all.length;
        zone = 0;
        pad = (index + count) % count;
    }

    Rectangle {
        width: 216
        height: Theme.touch + 4
        radius: 12
        color: Theme.background
        border.color: Theme.line
        StepButton {
            x: 2; y: 2
            sign: "\u2039"
            onStepped: picker.choosePad(picker.pad - 1)
        }
        Text {
            anchors.centerIn: parent
            text: Pads.all[picker.pad].name
            color: Theme.text
            font.pixelSize: Theme.title
        }
        StepButton {
            objectName: "nextPad"
            y: 2
            anchors { right: parent.right; rightMargin: 2 }
            sign: "\u203a"
            onStepped: picker.choosePad(picker.pad + 1)
        }
    }
    SectionTabs {
        names: Pads.zoneNames(picker.pad)
        segmentWidth: 72
        current: picker.zone
        onChosen: picker.zone = index
    }
}
