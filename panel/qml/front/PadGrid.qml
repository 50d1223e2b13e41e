import QtQuick 2.12
import "../style"

// The kit. With the keyboard focus, the arrow keys choose a zone, Space strikes it, the digits 1 to 9 strike it softly
// to hard, and a held key chokes it.
FocusScope {
    id: grid
    property string current: "snare"
    readonly property int keyVelocity: 100

    readonly property var cells: [
        { name: "Crash 1", pad: 8, column: 0, row: 0 }, { name: "Hi-hat", pad: 7, column: 1, row: 0, wide: true },
        { name: "Ride", pad: 6, column: 3, row: 0 }, { name: "Crash 2", pad: 9, column: 4, row: 0 },
        { name: "Snare", pad: 1, column: 0, row: 1 }, { name: "Tom 1", pad: 2, column: 1, row: 1 },
        { name: "Tom 2", pad: 3, column: 2, row: 1 }, { name: "Tom 3", pad: 4, column: 3, row: 1 },
        { name: "Tom 4", pad: 5, column: 4, row: 1 }, { name: "Kick", pad: 0, column: 0, row: 2 },
        { name: "Aux 1", pad: 10, column: 1, row: 2 }, { name: "Aux 2", pad: 11, column: 2, row: 2 },
        { name: "Aux 3", pad: 12, column: 3, row: 2 }, { name: "Aux 4", pad: 13, column: 4, row: 2 }
    ]
    readonly property real cellWidth: Math.floor((width + 5) / 5)
    readonly property real cellHeight: Math.floor((height + 5) / 3)

    activeFocusOnTab: true

    // The zones of a pad. A zone's name is the pad's, with the part after "-" for all but the first.
    function zonesOf(pad) {
        return panel.zones.filter(function (zone) { return zone.pad === pad; }).map(function (zone) {
            var part = zone.name.split("-")[1];
            return { zone: zone, label: part ? part : zone.name === "hihat" ? "closed" : zone.canBeChoked ? "bow" : "head" };
        });
    }
    function eachStrip(visit) {
        for (var i = 0; i < cellsView.count; ++i) {
            var cell = cellsView.itemAt(i);
            for (var k = 0; k < cell.zones.length; ++k)
                visit(cell.stripAt(k));
        }
    }
    function stripOf(name) {
        var found = null;
        eachStrip(function (strip) { if (strip.zone.name === name) found = strip; });
        return found;
    }
    // Chooses the nearest zone in a direction.
    function move(right, down) {
        var from = stripOf(current);
        var start = from.mapToItem(grid, from.width / 2, from.height / 2);
        var best = Infinity;
        eachStrip(function (strip) {
            var middle = strip.mapToItem(grid, strip.width / 2, strip.height / 2);
            var ahead = (middle.x - start.x) * right + (middle.y - start.y) * down;
            var aside = Math.abs((middle.x - start.x) * down) + Math.abs((middle.y - start.y) * right);
            if (ahead > 4 && ahead + 3 * aside < best) {
                best = ahead + 3 * aside;
                current = strip.zone.name;
            }
        });
    }
    function velocityOf(event) {
        if (event.key >= Qt.Key_1 && event.key <= Qt.Key_9)
            return Math.round(127 * (event.key - Qt.Key_0) / 9);
        return event.key === Qt.Key_Space || event.key === Qt.Key_Return ? keyVelocity : 0;
    }

    Keys.onLeftPressed: move(-1, 0)
    Keys.onRightPressed: move(1, 0)
    Keys.onUpPressed: move(0, -1)
    Keys.onDownPressed: move(0, 1)
    Keys.onPressed: {
        var velocity = velocityOf(event);
        if (velocity === 0)
            return;
        event.accepted = true;
        if (!event.isAutoRepeat)
            stripOf(current).strike(velocity);
    }
    Keys.onReleased: {
        if (velocityOf(event) > 0 && !event.isAutoRepeat)
            stripOf(current).release();
    }
    onActiveFocusChanged: {
        if (!activeFocus)
            eachStrip(function (strip) { strip.release(); });
    }
    // Before the highlight moves to another zone, its key counts as released.
    onCurrentChanged: eachStrip(function (strip) { if (strip.zone.name !== current) strip.release(); })

    Repeater {
        id: cellsView
        model: grid.cells
        PadCell {
            name: modelData.name
            zones: grid.zonesOf(modelData.pad)
            columns: modelData.wide ? 2 : 1
            currentZone: grid.activeFocus ? grid.current : ""
            x: modelData.column * grid.cellWidth
            y: modelData.row * grid.cellHeight
            width: grid.cellWidth * columns - 5
            height: grid.cellHeight - 5
            onTouched: {
                grid.current = zone;
                grid.forceActiveFocus();
            }
        }
    }

    function light(note, velocity) {
        eachStrip(function (strip) { if (strip.zone.note === note) strip.light(velocity); });
    }
    Component.onCompleted: panel.struck.connect(light)
    Component.onDestruction: panel.struck.disconnect(light)
}
