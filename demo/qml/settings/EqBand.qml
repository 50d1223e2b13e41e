import QtQuick 2.12
import "texts.js" as Texts

// One band of an equaliser. Shelves have no Q.
QtObject {
    id: band
    property string label
    property string shape
    property string method
    property var before: []
    property real startFrequency: 1000
    readonly property bool hasQ: shape === "peak"

    readonly property Parameter frequency: Parameter {
        label: "Frequency"; method: band.method + "Freq"; before: band.before
        from: 20; to: 16000; logarithmic: true; value: band.startFrequency; wording: Texts.hertz
    }
    readonly property Parameter gain: Parameter {
        label: "Gain"; method: band.method + "Gain"; before: band.before
        from: -15; to: 15; neutral: 0; bipolar: true; wording: Texts.decibels
    }
    readonly property Parameter q: Parameter {
        label: "Q"; method: band.method + "Q"; before: band.before
        from: 0.1; to: 8; step: 0.1; value: 1; wording: Texts.oneDecimal
    }
}
