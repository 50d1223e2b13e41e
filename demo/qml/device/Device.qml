pragma Singleton
import QtQuick 2.12
import ZeltaConnect 1.0

// The only file of the screen that creates the module. send() and request() make all calls and return what the method
// returns. This object unpacks and counts all events, and provides them as signals and properties.
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
    // Emitted before each call of the module.
    signal called(string method, int argumentCount)

    // Calls a method that changes a setting.
    function send(method, values) {
        var answer = call(method, values);
        controlChanges += 1;
        return answer;
    }
    // Calls a method that only requests a report. It is not counted as a control change.
    function request(method, values) {
        return call(method, values || []);
    }
    function call(method, values) {
        called(method, values.length);
        return zelta[method].apply(zelta, values);
    }

    // The MIDI foot controller, which the engine uses for the hi-hat pedal.
    readonly property int footController: 4

    ZeltaConnect {
        id: zelta

        // A note holds velocity, note, pad and zone, from the lowest byte up.
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

    readonly property EventLog log: EventLog { module: zelta }

    // The engine sends to the address from which it last received a datagram. If the screen has received nothing for
    // some time, it therefore sends a request.
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
