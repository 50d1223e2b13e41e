import QtQuick 2.12
import ZeltaConnect.Companion 1.0

// The screen with the companion module.
Face {
    id: face
    readonly property var module: drums.zelta
    zelta: drums.zelta
    names: Kit.pads.map(function(pad) { return pad.name; })
    status: drums.connected ? "connected" : "no signal"
    hits: HitModel {
        engine: drums
        limit: 8
        onLatestChanged: face.flash(latest.pad)
    }
    Engine {
        id: drums
    }
    Parameter {
        engine: drums
        method: "setMasterOutLevel"
    }
    FileTransfer {
        engine: drums
        kind: FileTransfer.SoundBank
    }
}
