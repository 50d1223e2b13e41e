import QtQuick 2.12
import "../charts"
import "../controls"
import "../settings"
import "../style"

// One compressor at a time: its transfer curve, its settings, and its levels.
Item {
    id: page
    readonly property CompressorSettings compressor: header.ofPad ? Settings.pad(header.note).compressor
                                                                  : Settings.compressors[header.section]
    readonly property string levelPrefix: ["masterCp", "monitorCp", "headCp", "padCp"][header.section]

    // The engine reports the levels of a compressor only on request.
    Timer {
        interval: 100
        repeat: true
        running: page.visible
        triggeredOnStart: true
        onTriggered: page.compressor.requestLevels()
    }
    SectionHeader {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.margin }
        active: page.compressor.active
    }
    Card {
        id: picture
        anchors {
            left: header.left; top: header.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        width: 560
        title: "Transfer curve"
        aside: "output over input, dB"
        CompressorCurve {
            anchors.fill: parent
            settings: page.compressor
        }
    }
    Card {
        id: knobs
        anchors { left: picture.right; leftMargin: Theme.gap; top: picture.top; bottom: picture.bottom }
        width: 300
        title: "Settings"
        Grid {
            columns: 2
            Repeater {
                model: page.compressor.all
                Item {
                    width: 134
                    height: 184
                    Knob {
                        anchors.centerIn: parent
                        parameter: modelData
                        width: 120
                        dialSize: 96
                    }
                }
            }
        }
    }
    Card {
        anchors {
            left: knobs.right; leftMargin: Theme.gap; right: header.right; top: picture.top; bottom: picture.bottom
        }
        title: "Levels"
        CompressorMeters {
            anchors.fill: parent
            prefix: page.levelPrefix
        }
    }
}
