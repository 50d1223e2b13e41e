pragma Singleton
import QtQuick 2.12
import "../device"

// The values that the screen set last, so that a page shows them again when it is opened again.
QtObject {
    id: settings
    readonly property MixerSettings mixer: MixerSettings {}
    readonly property EffectsSettings effects: EffectsSettings {}
    readonly property MetronomeSettings metronome: MetronomeSettings {}
    readonly property ModuleSettings setup: ModuleSettings {}
    readonly property ProgramSettings programs: ProgramSettings {}
    readonly property RoutingSettings routing: RoutingSettings {}
    // The folder that a list of files shows first.
    property url startFolder
    readonly property int engineTempo: Device.tempo
    onEngineTempoChanged: metronome.tempo.learn(engineTempo)

    readonly property list<EqSettings> equalisers: [
        EqSettings { prefix: "setMasterEq" },
        EqSettings { prefix: "setMonitorEq" },
        EqSettings { prefix: "setHeadEq" }
    ]
    readonly property list<CompressorSettings> compressors: [
        CompressorSettings { prefix: "setMasterCp"; requestMethod: "requestMasterCpUpdate" },
        CompressorSettings { prefix: "setMonitorCp"; requestMethod: "requestMonitorCpUpdate" },
        CompressorSettings { prefix: "setHeadCp"; requestMethod: "requestHeadCpUpdate" }
    ]

    // The pads have some forty notes. The settings of a note are created when they are first used.
    readonly property Component padFactory: Component { PadSettings {} }
    property var pads: ({})
    function pad(note) {
        if (!pads[note])
            pads[note] = padFactory.createObject(settings, { note: note });
        return pads[note];
    }

    readonly property Component triggerFactory: Component { TriggerSettings {} }
    property var triggers: ({})
    function trigger(input) {
        if (!triggers[input])
            triggers[input] = triggerFactory.createObject(settings, { input: input });
        return triggers[input];
    }
}
