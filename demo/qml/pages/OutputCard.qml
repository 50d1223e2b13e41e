import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// One stereo output: the level with its meter, and the balance.
Card {
    id: output
    property Parameter level
    property Parameter balance
    property real levelLeft: 0
    property real levelRight: 0

    width: 184
    Fader {
        height: parent.height
        width: 84
        label: "Level"
        parameter: output.level
        levelLeft: output.levelLeft
        levelRight: output.levelRight
    }
    Knob {
        x: 82
        width: 76
        dialSize: 56
        parameter: output.balance
    }
}
