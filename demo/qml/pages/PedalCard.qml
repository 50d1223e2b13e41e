import QtQuick 2.12
import "../controls"
import "../device"
import "../settings"
import "../style"

// The settings of a trigger input for the hi-hat's pedal, and the pedal's raw value, which the engine reports on request.
Card {
    id: card
    property TriggerSettings trigger
    property string rawValue: "not read yet"

    title: "Hi-hat pedal"

    function take(value) {
        rawValue = String(value);
    }
    Component.onCompleted: Device.module.hihatRawValueChanged.connect(take)
    Component.onDestruction: Device.module.hihatRawValueChanged.disconnect(take)

    KnobGrid {
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: reader.top }
        knobs: card.trigger.hiHatKnobs
        rows: 1
    }
    PushButton {
        id: reader
        objectName: "readPedal"
        anchors { left: parent.left; bottom: parent.bottom }
        text: "Read the raw value"
        onConfirmed: {
            card.rawValue = "waiting for the engine";
            Device.request("requestHHRawValue");
        }
    }
    Text {
        anchors { left: reader.right; leftMargin: Theme.gap; verticalCenter: reader.verticalCenter }
        text: card.rawValue
        color: Theme.text
        font.pixelSize: Theme.title
    }
}
