pragma Singleton
import QtQuick 2.12
import ZeltaConnect 1.0

// The one door between the screen and the module's back end: every change leaves through send(), and
// everything that arrives is unpacked here once, counted, and handed on in the screen's own terms.
Item {
    id: device

    readonly property alias module: zelta

    property int controlChanges: 0
    property int padHits: 0
    property int chokes: 0
    property int meterReports: 0
    property int compressorReports: 0
    property int beats: 0
    property int tempoReports: 0
    property int pedalMoves: 0
    property int switchChanges: 0
    property int potSteps: 0
    property int otherEvents: 0
    readonly property int events: padHits + chokes + meterReports + compressorReports + beats
                                  + tempoReports + pedalMoves + switchChanges + potSteps + otherEvents

    readonly property int tempo: zelta.tempo
    property int pedal: 0

    signal struck(int pad, int zone, int note, int velocity)
    signal pressed(int pad, int note, int pressure)
    signal beatArrived(int beat)
    signal potTurned(int pot, int direction)
    signal metersArrived()
    signal answered(int id, int first, int second)

    function send(method, values) {
        zelta[method].apply(zelta, values);
        controlChanges += 1;
    }
    // Asking is not changing: requests are not counted as control changes.
    function request(method, values) {
        zelta[method].apply(zelta, values || []);
    }

    // MIDI's foot controller; the engine uses it for the hi-hat pedal.
    readonly property int footController: 4

    ZeltaConnect {
        id: zelta

        // A note event packs velocity, note, pad and zone from the lowest byte up.
        onNoteChanged: {
            device.padHits += 1;
            device.struck((note >> 16) & 0xff, (note >> 24) & 0xff, (note >> 8) & 0xff, note & 0xff);
        }
        onAfterTouchNoteChanged: {
            device.chokes += 1;
            device.pressed((afterTouchNote >> 16) & 0xff, (afterTouchNote >> 8) & 0xff, afterTouchNote & 0xff);
        }
        onPositionChanged: {
            device.pedalMoves += 1;
            if ((position >> 8) === device.footController)
                device.pedal = position & 0x7f;
        }
        onBeatChanged: {
            device.beats += 1;
            device.beatArrived(beat);
        }
        onTempoChanged: device.tempoReports += 1
        onOutputLevelsChanged: {
            device.meterReports += 1;
            device.metersArrived();
        }
        onMasterCpChanged: device.compressorReports += 1
        onMonitorCpChanged: device.compressorReports += 1
        onHeadCpChanged: device.compressorReports += 1
        onPadCpChanged: device.compressorReports += 1

        onPowerChanged: device.switchChanges += 1
        onFoot1Changed: device.switchChanges += 1
        onFoot2Changed: device.switchChanges += 1
        onAux3Changed: device.switchChanges += 1
        onAux4Changed: device.switchChanges += 1
        onHpDetectChanged: device.switchChanges += 1
        onMixInDetectChanged: device.switchChanges += 1
        onHomeButtonChanged: device.switchChanges += 1

        onTriggerPot0Inc: device.turned(0, 1)
        onTriggerPot1Inc: device.turned(1, 1)
        onTriggerPot2Inc: device.turned(2, 1)
        onTriggerPot3Inc: device.turned(3, 1)
        onTriggerPot0Dec: device.turned(0, -1)
        onTriggerPot1Dec: device.turned(1, -1)
        onTriggerPot2Dec: device.turned(2, -1)
        onTriggerPot3Dec: device.turned(3, -1)

        onUdpPacketArrived: {
            device.otherEvents += 1;
            device.answered(id, idx, data);
        }
    }

    // The engine answers whoever spoke to it last, so a screen that has heard nothing for a while speaks up.
    property int eventsBefore: -1
    Timer {
        interval: 2000
        repeat: true
        running: true
        triggeredOnStart: true
        onTriggered: {
            if (device.events === device.eventsBefore || device.events === 0)
                device.request("requestOutsUpdate");
            device.eventsBefore = device.events;
        }
    }

    function turned(pot, direction) {
        potSteps += 1;
        potTurned(pot, direction);
    }
}
