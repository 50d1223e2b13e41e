import QtQuick 2.12
import "../charts"
import "../controls"
import "../settings"
import "../style"

// One equaliser at a time: its response and its knobs.
Item {
    id: page
    readonly property EqSettings eq: header.ofPad ? Settings.pad(header.note).eq : Settings.equalisers[header.section]

    SectionHeader {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.margin }
        active: page.eq.active
    }
    Card {
        id: picture
        anchors { left: header.left; right: header.right; top: header.bottom; topMargin: Theme.gap }
        height: 396
        EqCurve {
            anchors { fill: parent; leftMargin: 44 }
            settings: page.eq
        }
    }
    Row {
        id: bands
        anchors {
            left: header.left; right: header.right; top: picture.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        spacing: Theme.gap
        Repeater {
            model: page.eq.bands
            Card {
                readonly property EqBand band: modelData
                width: (bands.width - (page.eq.bands.length - 1) * bands.spacing) / page.eq.bands.length
                height: bands.height
                title: (index + 1) + "  " + band.label
                aside: band.hasQ ? "bell" : "shelf"
                Row {
                    id: knobs
                    anchors.centerIn: parent
                    readonly property var shown: band.hasQ ? [band.frequency, band.gain, band.q]
                                                           : [band.frequency, band.gain]
                    Repeater {
                        model: knobs.shown
                        Knob {
                            parameter: modelData
                            width: 76
                            dialSize: 72
                        }
                    }
                }
            }
        }
    }
}
