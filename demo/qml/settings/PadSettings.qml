import QtQuick 2.12
import "texts.js" as Texts

// Sound, mix and routing of one zone of a pad, addressed by its note.
QtObject {
    id: pad
    property int note: 36
    readonly property var last: [note]

    readonly property EqSettings eq: EqSettings { prefix: "setPadEq"; note: pad.note }
    readonly property CompressorSettings compressor: CompressorSettings {
        prefix: "setPadCp"; note: pad.note; requestMethod: "requestPadUpdate"
    }

    readonly property Parameter group: Parameter { label: "Group"; method: "setSoundGroup"; after: pad.last; to: 31 }
    readonly property Parameter instrument: Parameter {
        label: "Instrument"; method: "setSoundInstr"; after: pad.last
    }
    readonly property Parameter volume: Parameter {
        label: "Volume"; method: "setInstrumentVolume"; after: pad.last; value: 100
    }
    readonly property Parameter coarse: Parameter {
        label: "Coarse"; method: "setInstrumentCoarseTuning"; after: pad.last
        from: -24; to: 24; neutral: 0; bipolar: true; wording: Texts.signed
    }
    readonly property Parameter fine: Parameter {
        label: "Fine"; method: "setInstrumentFineTuning"; after: pad.last
        value: 64; neutral: 64; bipolar: true; wording: Texts.fineTuning
    }
    readonly property Parameter attack: Parameter { label: "Attack"; method: "setPadExtraAttackTime"; after: pad.last }
    readonly property Parameter release: Parameter {
        label: "Release"; method: "setPadExtraEnvelopeReleaseTime"; after: pad.last; value: 90
    }
    readonly property var soundKnobs: [volume, coarse, fine, attack, release]

    readonly property Parameter secondActive: Parameter {
        label: "Second sound"; method: "setPadExtraSecondSoundActive"; after: pad.last; to: 1
    }
    readonly property Parameter secondSelect: Parameter {
        label: "Sound"; method: "setPadExtraSecondSoundSelect"; after: pad.last; to: 999; value: 300
    }
    readonly property Parameter secondVolume: Parameter {
        label: "Volume"; method: "setPadExtraSecondSoundVolume"; after: pad.last; value: 70
    }
    readonly property Parameter secondCoarse: Parameter {
        label: "Coarse"; method: "setInstrumentSecondCoarseTuning"; after: pad.last
        from: -24; to: 24; neutral: 0; bipolar: true; wording: Texts.signed
    }
    readonly property Parameter secondFine: Parameter {
        label: "Fine"; method: "setInstrumentSecondFineTuning"; after: pad.last
        value: 64; neutral: 64; bipolar: true; wording: Texts.fineTuning
    }
    readonly property Parameter secondAttack: Parameter {
        label: "Attack"; method: "setPadExtraSecondSoundAttack"; after: pad.last
    }
    readonly property Parameter secondRelease: Parameter {
        label: "Release"; method: "setPadExtraSecondSoundRelease"; after: pad.last; value: 80
    }
    readonly property var secondKnobs: [secondVolume, secondCoarse, secondFine, secondAttack, secondRelease]

    readonly property Parameter mixVolume: Parameter {
        label: "Level"; method: "setPadMixerVolume"; after: pad.last; value: 100
    }
    readonly property Parameter pan: Balance { label: "Pan"; method: "setPadMixerPanning"; after: pad.last }
    readonly property Parameter ambience: Parameter {
        label: "Ambience"; method: "setPadMixerAmbience"; after: pad.last; value: 40
    }
    readonly property Parameter instrumentReverb: Parameter {
        label: "Inst. rev."; method: "setPadMixerInstrumentReverb"; after: pad.last; value: 24
    }
    readonly property Parameter roomReverb: Parameter {
        label: "Room rev."; method: "setPadMixerRoomReverb"; after: pad.last; value: 32
    }
    readonly property Parameter multiFx: Parameter { label: "Multi-FX"; method: "setPadMixerMultiFX"; after: pad.last }
    readonly property Routing multiFxDirect: Routing {
        label: "Pad multi-FX direct"; method: "setPadMixerMultiFXDirect"; after: pad.last
    }

    readonly property Parameter midiNote: Parameter {
        label: "MIDI note out"; method: "setPadMidiNote"; after: pad.last; value: pad.note
    }
    // The module has this method, but it sends nothing.
    readonly property Parameter buzz: Parameter {
        label: "Buzz (not sent)"; method: "setPadExtraCrossfeedBuzz"; after: pad.last
    }
    readonly property var mixKnobs: [mixVolume, pan, ambience, instrumentReverb, roomReverb, multiFx]
}
