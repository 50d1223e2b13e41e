import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// Selects the output, or the zone of a pad, for an equaliser or compressor page. Also switches the unit on or off.
Item {
    id: header
    property int section: 0
    readonly property bool ofPad: section === 3
    readonly property alias note: picker.note
    property Parameter active

    height: Theme.touch + 4

    SectionTabs {
        id: tabs
        objectName: "sections"
        names: ["Master", "Monitor", "Phones", "Pad"]
        segmentWidth: 104
        current: header.section
        onChosen: header.section = index
    }
    PadPicker {
        id: picker
        visible: header.ofPad
        anchors { left: tabs.right; leftMargin: Theme.gap }
    }
    Toggle {
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        parameter: header.active
    }
}
