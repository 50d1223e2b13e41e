// Calibrates the hi-hat pedal: shows its raw value, keeps those of both ends, and sets the two positions.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 640
    height: 320
    // The trigger input of the pedal.
    property int input: 7
    property int raw: -1
    property int open: -1
    property int closed: -1
    // 0 open, 1 closed; -1 before both ends are known.
    readonly property real travel: raw < 0 || open < 0 || closed < 0 || open === closed ? -1
                                   : Math.max(0, Math.min(1, (raw - open) / (closed - open)))

    Engine {
        id: drums
    }
    // The query is a task of the transfer queue: the module performs it after the files before it, and then waits 20 s for
    // the answer. The next query follows the answer. When none arrives in time, the first query may still be waiting, so
    // only the person repeats it.
    property int answerMs: 21000
    function take(value) {
        raw = value;
        unanswered.stop();
        pause.restart();
    }
    function ask() {
        unanswered.restart();
        drums.zelta.requestHHRawValue();
    }
    Timer {
        id: pause
        interval: 50
        onTriggered: screen.ask()
    }
    Timer {
        id: unanswered
        interval: screen.answerMs
        onTriggered: screen.raw = -1
    }
    Component.onCompleted: {
        drums.zelta.hihatRawValueChanged.connect(take);
        ask();
    }

    Column {
        anchors.centerIn: parent
        spacing: 16
        Text {
            objectName: "raw"
            text: screen.raw >= 0 ? "Raw value " + screen.raw
                  : unanswered.running ? "Waiting for the pedal" : "No answer yet"
        }
        ProgressBar {
            objectName: "travel"
            width: 400
            value: Math.max(0, screen.travel)
        }
        Row {
            spacing: 16
            Button {
                objectName: "open"
                enabled: screen.raw >= 0
                text: "Pedal is up"
                onClicked: screen.open = screen.raw
            }
            Button {
                objectName: "closed"
                enabled: screen.raw >= 0
                text: "Pedal is down"
                onClicked: screen.closed = screen.raw
            }
            Button {
                objectName: "again"
                enabled: screen.raw < 0 && !unanswered.running
                text: "Measure again"
                onClicked: screen.ask()
            }
        }
        Repeater {
            model: [
                { name: "Low position", method: "sendTriggerHHLowPosition", initial: 0 },
                { name: "High position", method: "sendTriggerHHHighPosition", initial: 127 }
            ]
            Row {
                spacing: 16
                Text {
                    width: 160
                    text: modelData.name + " " + position.text
                }
                Slider {
                    objectName: modelData.method
                    to: 127
                    stepSize: 1
                    value: position.value
                    onMoved: position.set(value)
                }
                Parameter {
                    id: position
                    engine: drums
                    method: modelData.method
                    leading: [screen.input]
                    initial: modelData.initial
                    interval: 40
                }
            }
        }
    }
}
