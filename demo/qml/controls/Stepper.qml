import QtQuick 2.12
import "../settings"
import "../style"

// A choice between few values: minus, the value as text, plus. A held button repeats.
Item {
    id: stepper
    property Parameter parameter
    property string label: parameter ? parameter.label : ""
    // Set if only some values within the limits are valid.
    property var choices: null
    signal moved()

    objectName: parameter ? parameter.method : ""
    implicitWidth: 200
    implicitHeight: name.height + 6 + Theme.touch

    function move(direction) {
        if (choices) {
            var at = choices.indexOf(parameter.value) + direction;
            if (at >= 0 && at < choices.length)
                parameter.set(choices[at]);
        } else {
            parameter.set(parameter.value + direction * parameter.step);
        }
        moved();
    }

    Caption {
        id: name
        text: stepper.label
        color: Theme.text
    }
    Rectangle {
        anchors { top: name.bottom; topMargin: 6 }
        width: parent.width
        height: Theme.touch
        radius: 10
        color: Theme.background
        border.color: Theme.line

        Text {
            anchors.centerIn: parent
            width: parent.width - 2 * Theme.touch - 8
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 12
            horizontalAlignment: Text.AlignHCenter
            text: stepper.parameter ? stepper.parameter.text : ""
            color: Theme.text
            font.pixelSize: Theme.title
        }
        StepButton {
            sign: "\u2212"
            onStepped: stepper.move(-1)
        }
        StepButton {
            objectName: "more"
            anchors.right: parent.right
            sign: "+"
            onStepped: stepper.move(1)
        }
    }
}
