import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"
import "../style"

// All levels and balances of the mixer.
Item {
    id: page
    readonly property MixerSettings mixer: Settings.mixer
    readonly property var module: Device.module
    readonly property real rowHeight: (height - 2 * Theme.margin - Theme.gap) / 2

    onVisibleChanged: {
        if (visible)
            Device.request("requestOutsUpdate");
    }

    Row {
        id: outputs
        x: Theme.margin
        y: Theme.margin
        spacing: Theme.gap
        OutputCard {
            height: page.rowHeight
            title: "Master"
            level: page.mixer.master
            balance: page.mixer.masterBalance
            levelLeft: page.module.masterOutL
            levelRight: page.module.masterOutR
        }
        OutputCard {
            height: page.rowHeight
            title: "Monitor"
            level: page.mixer.monitor
            balance: page.mixer.monitorBalance
            levelLeft: page.module.monitorOutL
            levelRight: page.module.monitorOutR
        }
        OutputCard {
            height: page.rowHeight
            title: "Phones"
            level: page.mixer.phones
            balance: page.mixer.phonesBalance
            levelLeft: page.module.headOutL
            levelRight: page.module.headOutR
        }
    }
    Card {
        id: inputs
        anchors {
            left: outputs.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin
            top: outputs.top
        }
        height: page.rowHeight
        title: "Sources"
        Row {
            id: sources
            readonly property real slot: width / 6
            width: parent.width
            height: parent.height
            Repeater {
                model: [page.mixer.kit, page.mixer.song, page.mixer.synth, page.mixer.mixIn]
                Fader {
                    parameter: modelData
                    width: sources.slot
                    height: parent.height
                }
            }
            Fader {
                parameter: page.mixer.usbIn
                width: sources.slot
                height: parent.height
                levelLeft: page.module.usbInLLevel
                levelRight: page.module.usbInRLevel
            }
            Knob {
                parameter: page.mixer.mixInGain
                width: sources.slot
            }
        }
    }
    DirectOuts {
        id: direct
        anchors {
            left: outputs.left; top: outputs.bottom; topMargin: Theme.gap
            right: blend.left; rightMargin: Theme.gap
        }
        height: page.rowHeight
    }
    Card {
        id: blend
        anchors { right: inputs.right; top: direct.top }
        width: 264
        height: page.rowHeight
        title: "Kit"
        Caption {
            text: "Snare style"
            color: Theme.text
        }
        SectionTabs {
            y: 24
            width: parent.width
            names: ["1", "2", "3"]
            current: page.mixer.snareStyle.value
            onChosen: page.mixer.snareStyle.set(index)
        }
        Knob {
            anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 8 }
            parameter: page.mixer.crossfade
            dialSize: 96
            width: 140
        }
    }
}
