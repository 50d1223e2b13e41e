import QtQuick 2.12
import "../controls"
import "../style"

// Output and compressor meters, by hand or by themselves.
Item {
    id: page
    readonly property var outputs: ["Master L", "Master R", "Monitor L", "Monitor R", "Phones L", "Phones R", "Out 1", "Out 2",
        "Out 3", "Out 4", "Out 5", "Out 6", "Out 7", "Out 8", "S/PDIF L", "S/PDIF R", "USB in L", "USB in R"]
    readonly property var sections: ["master", "monitor", "headphone", "pad"]
    property int section: 0
    property var compressors: [[0, 0, 0, 0, 0, 0], [0, 0, 0, 0, 0, 0], [0, 0, 0, 0, 0, 0], [0, 0, 0, 0, 0, 0]]

    function levelsOf(repeater) {
        var levels = [];
        for (var i = 0; i < repeater.count; ++i)
            levels.push(repeater.itemAt(i).level);
        return levels.join(" ");
    }
    function showLevels() {
        for (var i = 0; i < bars.count && i < panel.levels.length; ++i)
            bars.itemAt(i).show(panel.levels[i]);
    }
    function showSection() {
        for (var i = 0; i < stages.count; ++i)
            stages.itemAt(i).show(compressors[section][i]);
    }
    Component.onCompleted: panel.levelsChanged.connect(showLevels)
    Component.onDestruction: panel.levelsChanged.disconnect(showLevels)

    Row {
        id: tools
        spacing: Theme.tight
        PushButton {
            objectName: "meters-auto"
            text: "Follow the hits"
            lit: panel.followingHits
            onClicked: panel.run("meters auto")
        }
        PushButton {
            objectName: "meters-reports"
            text: "30 reports a second"
            lit: panel.meterReports
            onClicked: panel.run(panel.meterReports ? "meters off" : "meters on")
        }
        Caption {
            height: Theme.row
            text: panel.followingHits ? "move a slider to set levels" : "levels set by hand"
        }
    }
    Row {
        id: outputsRow
        anchors { top: tools.bottom; topMargin: Theme.gap; bottom: tools2.top; bottomMargin: Theme.gap }
        Repeater {
            id: bars
            model: page.outputs
            MeterBar {
                objectName: "meter-" + index
                width: Math.floor(page.width / 18)
                height: outputsRow.height
                label: modelData
                onMoved: panel.run("meters " + page.levelsOf(bars))
            }
        }
    }
    Row {
        id: tools2
        y: stagesRow.y - height - Theme.tight
        spacing: Theme.tight
        Caption {
            height: Theme.row
            text: "Compressor"
        }
        Repeater {
            model: page.sections
            PushButton {
                objectName: "section-" + modelData
                text: modelData
                lit: page.section === index
                onClicked: {
                    page.section = index;
                    page.showSection();
                }
            }
        }
    }
    Row {
        id: stagesRow
        y: parent.height - height
        height: Math.round(parent.height * 0.36)
        Repeater {
            id: stages
            model: ["in L", "in R", "reduced L", "reduced R", "out L", "out R"]
            MeterBar {
                objectName: "compressor-" + index
                width: Math.floor(page.width / 6)
                height: stagesRow.height
                label: modelData
                upright: false
                onMoved: {
                    page.compressors[page.section][index] = level;
                    panel.run("comp " + page.sections[page.section] + " " + page.levelsOf(stages));
                }
            }
        }
    }
}
