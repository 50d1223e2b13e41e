pragma Singleton
import QtQuick 2.12

// The colours and sizes of the panel.
QtObject {
    readonly property color background: "#0f1318"
    readonly property color surface: "#181d24"
    readonly property color raised: "#242b35"
    readonly property color pressed: "#303a47"
    readonly property color line: "#303945"
    readonly property color text: "#e9eef3"
    readonly property color dim: "#9aa6b3"
    readonly property color accent: "#4fd1c5"
    readonly property color accentInk: "#06201d"
    readonly property color sent: "#ffb454"
    readonly property color received: "#7cc7ff"
    readonly property color alarm: "#ff7a6e"

    readonly property int small: 12
    readonly property int body: 13
    readonly property int title: 15
    readonly property string mono: "DejaVu Sans Mono"

    readonly property int gap: 10
    readonly property int tight: 5
    readonly property int row: 28
    readonly property int radius: 6
}
