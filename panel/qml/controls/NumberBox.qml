import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

// A number to type or to step. Return emits entered().
Templates.SpinBox {
    id: box
    signal entered()

    implicitWidth: 92
    implicitHeight: Theme.row
    // The indicators, which the input must not cover.
    leftPadding: 22
    rightPadding: 22
    editable: true
    focusPolicy: Qt.StrongFocus
    to: 65535
    wheelEnabled: true
    textFromValue: function (number) { return String(number); }
    valueFromText: function (text) { return parseInt(text, 10) || 0; }
    validator: IntValidator { bottom: box.from; top: box.to }

    // What is typed. The value itself is not assigned, because that would remove its binding.
    function typed() {
        return Math.max(from, Math.min(to, valueFromText(contentItem.text)));
    }

    background: Rectangle {
        radius: Theme.radius
        color: Theme.background
        border.color: Theme.line
        FocusFrame { shown: box.activeFocus }
    }
    contentItem: TextInput {
        objectName: "digits"
        text: box.displayText
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        selectByMouse: true
        font { pixelSize: Theme.body; family: Theme.mono }
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        validator: box.validator
        inputMethodHints: Qt.ImhDigitsOnly
        onAccepted: box.entered()
    }
    down.indicator: Rectangle {
        width: box.leftPadding
        height: box.height
        radius: Theme.radius
        color: box.down.pressed ? Theme.pressed : "transparent"
        Text { anchors.centerIn: parent; text: "\u2212"; color: Theme.dim; font.pixelSize: Theme.title }
    }
    up.indicator: Rectangle {
        x: box.width - width
        width: box.rightPadding
        height: box.height
        radius: Theme.radius
        color: box.up.pressed ? Theme.pressed : "transparent"
        Text { anchors.centerIn: parent; text: "+"; color: Theme.dim; font.pixelSize: Theme.title }
    }
}
