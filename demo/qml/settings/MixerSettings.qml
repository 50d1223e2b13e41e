import QtQuick 2.12
import "texts.js" as Texts

// The levels and balances of the mixer's inputs and outputs.
QtObject {
    id: mixer
    readonly property Parameter kit: Parameter { label: "Kit"; method: "setDrumKitVolume"; value: 110 }
    readonly property Parameter master: Parameter { label: "Master"; method: "setMasterOutLevel"; value: 84 }
    readonly property Parameter monitor: Parameter { label: "Monitor"; method: "setMonitorOutLevel"; value: 72 }
    readonly property Parameter phones: Parameter { label: "Phones"; method: "setHeadphoneOutLevel"; value: 68 }
    readonly property Parameter spdif: Parameter { label: "S/PDIF"; method: "setSpdifOutLevel"; value: 100 }
    readonly property Parameter usbIn: Parameter { label: "USB in"; method: "setUsbInLevel"; value: 64 }
    readonly property Parameter mixIn: Parameter { label: "Mix in"; method: "setMixInLevel"; value: 64 }
    readonly property Parameter song: Parameter { label: "Song"; method: "setSongLevel"; value: 80 }
    readonly property Parameter synth: Parameter { label: "Synth"; method: "setSynthMasterLevel"; value: 90 }
    readonly property Parameter mixInGain: Parameter {
        label: "Mix-in gain"; method: "sendMidiMixInputGain"; value: 40
    }
    readonly property Parameter crossfade: Balance { label: "Crossfade"; method: "setXFadeBalance" }
    readonly property Parameter snareStyle: Parameter { label: "Snare style"; method: "setSnareStyle"; to: 2 }

    readonly property Parameter masterBalance: Balance { method: "setMasterOutBalance" }
    readonly property Parameter monitorBalance: Balance { method: "setMonitorOutBalance" }
    readonly property Parameter phonesBalance: Balance { method: "setHeadphoneOutBalance" }

    property var directLevels: []
    property var directModes: []
    readonly property Component factory: Component { Parameter {} }

    Component.onCompleted: {
        var levels = [], modes = [];
        for (var i = 0; i < 8; ++i) {
            levels.push(factory.createObject(mixer, {
                label: "Out " + (i + 1), method: "setDirectOut" + (i + 1) + "Level", value: 96
            }));
            modes.push(factory.createObject(mixer, {
                label: "Mode", method: "setDirectOutMode", before: [i], to: 3
            }));
        }
        directLevels = levels;
        directModes = modes;
    }
}
