import QtQuick 2.12
import "../settings"
import "../style"

// The output level of a compressor over its input level, both from -60 dB to 0 dB. The units of the engine's values are
// not known. The picture assumes a threshold of -60 to 0 dB, a ratio of 1:1 to 20:1, and a knee and a boost of up to
// 24 dB.
Item {
    id: chart
    property CompressorSettings settings
    readonly property bool active: settings.active.isOn
    readonly property real floor: -60

    readonly property real threshold: floor * (1 - settings.threshold.position)
    readonly property real ratio: Math.pow(20, settings.ratio.position)
    readonly property real knee: 24 * settings.knee.position
    readonly property real boost: 24 * settings.boost.position
    onThresholdChanged: curve.requestPaint()
    onRatioChanged: curve.requestPaint()
    onKneeChanged: curve.requestPaint()
    onBoostChanged: curve.requestPaint()
    onActiveChanged: curve.requestPaint()

    function output(input) {
        if (!active)
            return input;
        var over = input - threshold;
        if (2 * over < -knee)
            return input + boost;
        if (knee > 0 && 2 * Math.abs(over) <= knee) {
            var into = over + knee / 2;
            return input + (1 / ratio - 1) * into * into / (2 * knee) + boost;
        }
        return threshold + over / ratio + boost;
    }
    function xOf(level) {
        return (1 - level / floor) * width;
    }
    function yOf(level) {
        return level / floor * height;
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.background
        border.color: Theme.line
        radius: 6
    }
    Repeater {
        model: [-48, -36, -24, -12]
        Item {
            Rectangle {
                x: chart.xOf(modelData)
                width: 1
                height: chart.height
                color: Theme.line
            }
            Rectangle {
                y: chart.yOf(modelData)
                width: chart.width
                height: 1
                color: Theme.line
            }
            Caption {
                x: chart.xOf(modelData) + 4
                y: chart.height - height - 3
                text: "\u2212" + -modelData
                color: Theme.faint
            }
            Caption {
                x: 5
                y: chart.yOf(modelData) - height
                text: "\u2212" + -modelData
                color: Theme.faint
            }
        }
    }
    Canvas {
        id: curve
        anchors.fill: parent
        anchors.margins: 1
        onPaint: {
            var context = getContext("2d");
            context.reset();
            context.lineWidth = 1.5;
            context.strokeStyle = Theme.faint;
            context.beginPath();
            context.moveTo(0, height);
            context.lineTo(width, 0);
            context.stroke();

            context.beginPath();
            for (var x = 0; x <= width; x += 2) {
                var y = chart.yOf(chart.output(chart.floor * (1 - x / width)));
                if (x === 0)
                    context.moveTo(x, y);
                else
                    context.lineTo(x, y);
            }
            context.lineWidth = 3;
            context.lineJoin = "round";
            context.strokeStyle = chart.active ? Theme.accent : Theme.dim;
            context.stroke();
        }
    }
    // The threshold, on the curve.
    Rectangle {
        visible: chart.active
        x: chart.xOf(chart.threshold) - width / 2
        y: Math.max(0, chart.yOf(chart.output(chart.threshold))) - height / 2
        width: 16
        height: 16
        radius: 8
        color: Theme.raised
        border.color: Theme.accent
        border.width: 2
    }
}
