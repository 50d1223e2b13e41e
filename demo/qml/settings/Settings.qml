pragma Singleton
import QtQuick 2.12
import "../device"

// What the screen last set, for every section, so that a page left and entered again shows the same.
QtObject {
    id: settings
    readonly property MixerSettings mixer: MixerSettings {}
    readonly property EffectsSettings effects: EffectsSettings {}
    readonly property MetronomeSettings metronome: MetronomeSettings {}
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

    // Pads have some forty notes of which few are ever edited, so their settings are made on first use.
    readonly property Component padFactory: Component { PadSettings {} }
    property var pads: ({})
    function pad(note) {
        if (!pads[note])
            pads[note] = padFactory.createObject(settings, { note: note });
        return pads[note];
    }
}
