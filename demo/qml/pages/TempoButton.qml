import QtQuick 2.12
import "../controls"
import "../settings"

// Moves the tempo by a fixed step.
PushButton {
    property int step: 1
    objectName: "tempo" + text
    width: 92
    height: parent.height
    autoRepeat: true
    textSize: 24
    onConfirmed: Settings.metronome.tempo.set(Settings.metronome.tempo.value + step)
}
