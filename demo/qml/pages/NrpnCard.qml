import QtQuick 2.12
import "../controls"
import "../device"
import "../style"

// Sets any parameter by its number.
Card {
    id: card
    title: "Direct NRPN"
    aside: "last sent: " + sent
    // The brightness of the LEDs. A parameter with a fader would then differ from its fader.
    property int high: 55
    property int low: 64
    property int value: 100
    property string sent: "nothing"
    readonly property real half: (width - 2 * padding - Theme.gap) / 2

    function bounded(v) {
        return Math.min(127, Math.max(0, v));
    }
    function send() {
        Device.send("sendDirectNrpn", [high, low, value]);
        sent = high + " / " + low + " = " + value;
    }

    Grid {
        anchors.bottom: parent.bottom
        columns: 2
        spacing: Theme.gap
        Repeater {
            model: ["high", "low", "value"]
            Item {
                width: card.half
                height: Theme.touch + 20
                Caption {
                    text: ["First byte", "Second byte", "Value"][index]
                    color: Theme.text
                }
                Picker {
                    objectName: "nrpn-" + modelData
                    anchors.bottom: parent.bottom
                    width: parent.width
                    text: card[modelData]
                    onMoved: card[modelData] = card.bounded(card[modelData] + direction)
                }
            }
        }
        Item {
            width: card.half
            height: Theme.touch + 20
            PushButton {
                objectName: "nrpn-send"
                anchors.bottom: parent.bottom
                width: parent.width
                text: "Send"
                onConfirmed: card.send()
            }
        }
    }
}
