import QtQuick 2.12
import "../device"
import "../style"

// The kit seen from above, with the drummer at the lower edge. The positions are for an area of 736 by 454 pixels.
Item {
    id: kit
    readonly property var places: [
        { x: 374, y: 246, size: 146 }, { x: 226, y: 258, size: 132 },
        { x: 292, y: 92, size: 116 }, { x: 424, y: 92, size: 116 },
        { x: 516, y: 244, size: 120 }, { x: 604, y: 382, size: 128 },
        { x: 656, y: 238, size: 148 }, { x: 80, y: 250, size: 128 },
        { x: 140, y: 98, size: 140 }, { x: 580, y: 96, size: 148 },
        { x: 190, y: 394, size: 84 }, { x: 288, y: 394, size: 84 },
        { x: 386, y: 394, size: 84 }, { x: 484, y: 394, size: 84 }
    ]

    Repeater {
        id: pads
        model: kit.places
        PadView {
            pad: index
            width: modelData.size
            x: modelData.x - width / 2
            y: modelData.y - width / 2
        }
    }
    PedalView {
        x: 28
        y: 344
        width: 110
        height: 100
    }

    function strike(pad, zone, note, velocity) {
        if (pad < places.length)
            pads.itemAt(pad).strike(zone, note, velocity);
    }
    function press(pad, note, pressure) {
        if (pad < places.length)
            pads.itemAt(pad).press(pressure);
    }
    Component.onCompleted: {
        Device.struck.connect(strike);
        Device.pressed.connect(press);
    }
    Component.onDestruction: {
        Device.struck.disconnect(strike);
        Device.pressed.disconnect(press);
    }
}
