import QtQuick 2.12

// The latest hits, the newest first. Roles: pad, zone, note, velocity, name, zoneName.
ListModel {
    id: model
    // An Engine or a ZeltaConnect.
    property QtObject engine: null
    // The number of hits that are kept.
    property int limit: 16

    // The latest hit, as Kit.decode() returns it. Changes with every hit, also with one that equals the one before.
    property var latest: null

    property QtObject listened: null

    function listen() {
        if (listened)
            listened.noteChanged.disconnect(take);
        listened = engine && engine.zelta !== undefined ? engine.zelta : engine;
        if (listened)
            listened.noteChanged.connect(take);
    }
    function take() {
        var hit = Kit.decode(listened.note);
        if (!hit)
            return;
        if (limit > 0) {
            trim(limit - 1);
            insert(0, hit);
        }
        latest = hit;
    }
    function trim(most) {
        if (count > most)
            remove(Math.max(0, most), count - Math.max(0, most));
    }
    onEngineChanged: listen()
    onLimitChanged: trim(limit)
}
