import QtQuick 2.12
import "../settings"
import "../style"
import "biquad.js" as Biquad

// The response of an equaliser, with a handle for each band: horizontal for frequency, vertical for gain.
Item {
    id: chart
    property EqSettings settings
    readonly property bool active: settings.active.isOn
    readonly property real lowest: 20
    readonly property real highest: 20000
    readonly property real range: 18

    // All values that the picture depends on, so that each change repaints it.
    readonly property var bandValues: settings.bands.map(function(band) {
        return { shape: band.shape, frequency: band.frequency.value, gain: band.gain.value, q: band.q.value };
    })
    onBandValuesChanged: curve.requestPaint()
    onActiveChanged: curve.requestPaint()

    function xOf(frequency) {
        return Math.log(frequency / lowest) / Math.log(highest / lowest) * width;
    }
    function frequencyAt(x) {
        return lowest * Math.pow(highest / lowest, x / width);
    }
    function yOf(gain) {
        return height / 2 - gain / range * height / 2;
    }
    function gainAt(y) {
        return (height / 2 - y) / (height / 2) * range;
    }

    Repeater {
        model: [50, 100, 200, 500, 1000, 2000, 5000, 10000]
        Item {
            x: chart.xOf(modelData)
            height: chart.height
            Rectangle {
                width: 1
                height: parent.height
                color: Theme.line
            }
            Caption {
                x: 5
                anchors.bottom: parent.bottom
                text: modelData < 1000 ? modelData : modelData / 1000 + "k"
                color: Theme.faint
            }
        }
    }
    Repeater {
        model: [12, 6, 0, -6, -12]
        Item {
            y: chart.yOf(modelData)
            width: chart.width
            Rectangle {
                width: parent.width
                height: 1
                color: modelData === 0 ? "#3f4854" : Theme.line
            }
            Caption {
                x: -width - 8
                y: -height / 2
                text: modelData > 0 ? "+" + modelData : modelData < 0 ? "\u2212" + -modelData : "0 dB"
                color: Theme.faint
            }
        }
    }
    Canvas {
        id: curve
        anchors.fill: parent
        onPaint: {
            var sections = chart.bandValues.map(function(b) {
                return Biquad.section(b.shape, b.frequency, b.gain, b.q);
            });
            var context = getContext("2d");
            context.reset();
            context.beginPath();
            for (var x = 0; x <= width; x += 3) {
                var frequency = chart.frequencyAt(x), total = 0;
                for (var i = 0; i < sections.length; ++i)
                    total += Biquad.decibels(sections[i], frequency);
                var y = chart.yOf(total);
                if (x === 0)
                    context.moveTo(x, y);
                else
                    context.lineTo(x, y);
            }
            context.strokeStyle = chart.active ? Theme.accent : Theme.faint;
            context.lineWidth = 3;
            context.lineJoin = "round";
            context.stroke();
            context.lineTo(width, chart.yOf(0));
            context.lineTo(0, chart.yOf(0));
            context.closePath();
            context.globalAlpha = 0.14;
            context.fillStyle = chart.active ? Theme.accent : Theme.faint;
            context.fill();
        }
    }
    Repeater {
        model: chart.settings.bands
        Item {
            id: handle
            objectName: "band-" + index
            readonly property EqBand band: modelData
            x: chart.xOf(band.frequency.value)
            y: chart.yOf(band.gain.value)
            Rectangle {
                anchors.centerIn: parent
                width: area.pressed ? 40 : 30
                height: width
                radius: width / 2
                color: area.pressed ? Theme.accent : Theme.raised
                border.color: chart.active ? Theme.accent : Theme.faint
                border.width: 2
                Text {
                    anchors.centerIn: parent
                    text: index + 1
                    color: area.pressed ? Theme.accentInk : Theme.text
                    font.pixelSize: Theme.caption
                    font.bold: true
                }
            }
            MouseArea {
                id: area
                width: 56
                height: 56
                x: -28
                y: -28
                preventStealing: true
                onPositionChanged: {
                    var at = mapToItem(chart, mouse.x, mouse.y);
                    handle.band.frequency.set(chart.frequencyAt(at.x));
                    handle.band.gain.set(Math.round(chart.gainAt(at.y)));
                }
            }
        }
    }
}
