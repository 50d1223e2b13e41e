import QtQuick 2.12
import "device"
import "pages"
import "panel"
import "settings"
import "style"

// Navigation, the page, and the status strip.
Item {
    id: shell
    readonly property var pages: [
        { name: "kit", label: "Kit", icon: "M4 10 C4 6.5 20 6.5 20 10 C20 13.5 4 13.5 4 10 M4 10 L4 17 C4 20.5 20 20.5 20 17 L20 10 M5 2 L11 8 M19 2 L13 8" },
        { name: "mixer", label: "Mixer", icon: "M6 4 L6 20 M12 4 L12 20 M18 4 L18 20 M3.5 15 L8.5 15 M9.5 8 L14.5 8 M15.5 13 L20.5 13" },
        { name: "equaliser", label: "Equaliser", icon: "M2 14 C6 14 5 6 9 6 C13 6 12 18 16 18 C19 18 19 12 22 12" },
        { name: "compressor", label: "Compressor", icon: "M4 4 L4 20 L20 20 M4 20 L12 11 L20 8" },
        { name: "effects", label: "Effects", icon: "M4 8 L4 16 M8 4 L8 20 M12 7 L12 17 M16 9.5 L16 14.5 M20 11 L20 13" },
        { name: "metronome", label: "Metronome", icon: "M9 3 L15 3 L19 21 L5 21 Z M12 16 L18 6 M6.5 16 L17.5 16" },
        { name: "padsound", label: "Pad sound", icon: "M12 4 C17 4 20 8 20 12 C20 16 17 20 12 20 C7 20 4 16 4 12 C4 8 7 4 12 4 M12 9 C14 9 15 10.5 15 12 C15 13.5 14 15 12 15 C10 15 9 13.5 9 12 C9 10.5 10 9 12 9" },
        { name: "update", label: "Update", icon: "M12 3 L12 15 M7 10 L12 15 L17 10 M4 15 L4 20 L20 20 L20 15" }
    ]
    property int current: 0
    property string startPage
    property url startFolder
    property string engineAddress
    readonly property string currentName: pages[current].name
    readonly property string connectionText: strip.connectionText
    // For whoever drives the screen from outside.
    readonly property Item device: Device
    readonly property QtObject settings: Settings
    readonly property QtObject transfers: Transfers

    function open(name) {
        for (var i = 0; i < pages.length; ++i) {
            if (pages[i].name === name)
                current = i;
        }
    }
    Component.onCompleted: open(startPage)

    NavBar {
        id: bar
        height: parent.height
        pages: shell.pages
        current: shell.current
        onChosen: shell.current = index
    }
    Item {
        id: stack
        anchors { left: bar.right; right: parent.right; top: parent.top; bottom: strip.top }
        KitPage { anchors.fill: parent; visible: shell.current === 0 }
        MixerPage { anchors.fill: parent; visible: shell.current === 1 }
        EqPage { anchors.fill: parent; visible: shell.current === 2 }
        CompressorPage { anchors.fill: parent; visible: shell.current === 3 }
        EffectsPage { anchors.fill: parent; visible: shell.current === 4 }
        MetronomePage { anchors.fill: parent; visible: shell.current === 5 }
        PadSoundPage { anchors.fill: parent; visible: shell.current === 6 }
        UpdatePage { anchors.fill: parent; visible: shell.current === 7; startFolder: shell.startFolder }
    }
    StatusStrip {
        id: strip
        anchors { left: bar.right; right: parent.right; bottom: parent.bottom }
        address: shell.engineAddress
    }
}
