import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"
import "../style"

// The eight direct outputs with their modes, and S/PDIF.
Card {
    id: card
    title: "Direct outputs"
    readonly property MixerSettings mixer: Settings.mixer
    readonly property var module: Device.module
    readonly property var levels: [module.out1Level, module.out2Level, module.out3Level, module.out4Level,
                                   module.out5Level, module.out6Level, module.out7Level, module.out8Level]
    readonly property real slot: (width - 2 * padding) / 9

    Row {
        height: parent.height
        Repeater {
            model: 8
            Item {
                id: channel
                readonly property Parameter mode: card.mixer.directModes[index]
                width: card.slot
                height: parent.height
                Fader {
                    width: parent.width
                    height: parent.height - Theme.touch - Theme.tight
                    parameter: card.mixer.directLevels[index]
                    levelLeft: card.levels[index]
                }
                PushButton {
                    objectName: "mode-" + index
                    anchors { bottom: parent.bottom; horizontalCenter: parent.horizontalCenter }
                    width: parent.width - 8
                    text: "Mode " + (channel.mode.value + 1)
                    onConfirmed: channel.mode.set((channel.mode.value + 1) % (channel.mode.to + 1))
                }
            }
        }
        Fader {
            width: card.slot
            height: parent.height - Theme.touch - Theme.tight
            parameter: card.mixer.spdif
            levelLeft: card.module.spdifLLevel
            levelRight: card.module.spdifRLevel
        }
    }
}
