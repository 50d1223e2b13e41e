import QtQuick 2.12
import "../controls"
import "../style"

// A pad with its zones.
Rectangle {
    id: cell
    property string name
    property var zones: [] // of the simulator's kit
    property int columns: 1
    property string currentZone
    readonly property int rows: Math.ceil(zones.length / columns)

    signal touched(string zone)

    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    function stripAt(index) {
        return strips.itemAt(index);
    }

    Caption {
        id: title
        x: 6
        width: parent.width - 12
        height: 18
        text: cell.name
        color: Theme.text
        font.bold: true
    }
    Item {
        id: area
        anchors { fill: parent; topMargin: title.height; margins: 4 }
        Repeater {
            id: strips
            model: cell.zones
            ZoneStrip {
                readonly property int row: index % cell.rows
                readonly property int column: Math.floor(index / cell.rows)
                zone: modelData.zone
                label: modelData.label
                current: cell.currentZone === modelData.zone.name
                x: column * (width + 3)
                y: row * (height + 3)
                width: Math.floor((area.width + 3) / cell.columns) - 3
                height: Math.floor((area.height + 3) / cell.rows) - 3
                onTouched: cell.touched(modelData.zone.name)
            }
        }
    }
}
