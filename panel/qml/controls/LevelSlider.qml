import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../style"

// A slider for one level, upright or horizontal. changed() is emitted for each new whole number.
Templates.Slider {
    id: slider
    property color tint: Theme.accent
    property int last: 0 // the level that changed() reported
    signal changed(int level)

    implicitWidth: horizontal ? 200 : 22
    implicitHeight: horizontal ? Theme.row : 160
    focusPolicy: Qt.StrongFocus
    live: true
    onMoved: {
        var level = Math.round(value);
        if (level !== last) {
            last = level;
            changed(level);
        }
    }

    // Shows a level that somebody else has set.
    function show(level) {
        if (pressed)
            return;
        value = level;
        last = level;
    }

    background: Rectangle {
        x: slider.horizontal ? 0 : (slider.width - width) / 2
        y: slider.horizontal ? (slider.height - height) / 2 : 0
        width: slider.horizontal ? slider.width : 14
        height: slider.horizontal ? 14 : slider.height
        radius: 4
        color: Theme.background
        border.color: Theme.line
        FocusFrame { shown: slider.activeFocus }
        Rectangle {
            x: 1
            y: slider.horizontal ? 1 : slider.visualPosition * (parent.height - 2) + 1
            width: slider.horizontal ? slider.position * (parent.width - 2) : parent.width - 2
            height: slider.horizontal ? parent.height - 2 : slider.position * (parent.height - 2)
            radius: 3
            color: slider.tint
            opacity: 0.8
        }
    }
    handle: Rectangle {
        x: slider.horizontal ? slider.visualPosition * (slider.width - width) : (slider.width - width) / 2
        y: slider.horizontal ? (slider.height - height) / 2 : slider.visualPosition * (slider.height - height)
        width: slider.horizontal ? 8 : 20
        height: slider.horizontal ? 20 : 8
        radius: 3
        color: slider.pressed ? Theme.accent : Theme.text
    }
}
