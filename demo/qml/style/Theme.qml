pragma Singleton
import QtQuick 2.12

// The colours, sizes and durations of the screen.
QtObject {
    readonly property color background: "#0d0f12"
    readonly property color surface: "#16191e"
    readonly property color raised: "#21262d"
    readonly property color pressed: "#2c323b"
    readonly property color line: "#2a3038"
    readonly property color text: "#eef1f4"
    readonly property color dim: "#97a0ac"
    readonly property color faint: "#5d6672"
    readonly property color accent: "#ffa726"
    readonly property color accentDeep: "#6b4717"
    readonly property color accentInk: "#1b1204"
    readonly property color alarm: "#ff5f52"

    readonly property int caption: 13
    readonly property int body: 15
    readonly property int title: 18
    readonly property int figure: 28
    readonly property int display: 64

    readonly property int gap: 16
    readonly property int tight: 8
    readonly property int margin: 20
    readonly property int radius: 14
    readonly property int touch: 52
    readonly property int quick: 90
}
