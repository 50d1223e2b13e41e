import QtQuick 2.12
import QtQuick.Window 2.12
import "style"

// The window. The module's constructor blocks while it waits for the engine, so the window shows a first frame before
// it creates the module.
Window {
    id: window
    property var pages
    property string startPage: "kit"
    property url startFolder
    property string engineAddress
    readonly property alias shell: loader.item
    readonly property bool ready: loader.status === Loader.Ready

    width: 1280
    height: 800
    minimumWidth: width
    minimumHeight: height
    maximumWidth: width
    maximumHeight: height
    visible: true
    title: "Zelta"
    color: Theme.background

    Text {
        anchors.centerIn: parent
        visible: !window.ready
        text: "Waiting for the engine at " + window.engineAddress
        color: Theme.dim
        font.pixelSize: Theme.title
    }
    // The screen is designed for a height of 800 and a width of at least 1280. A smaller window shows it reduced, as
    // one smooth picture, because reduced lines of one pixel would be lost.
    Loader {
        id: loader
        transformOrigin: Item.TopLeft
        scale: Math.min(window.width / 1280, window.height / 800)
        layer.enabled: scale !== 1
        layer.smooth: true
        width: window.width / scale
        height: window.height / scale
        active: false
        sourceComponent: Shell {
            pages: window.pages
            startPage: window.startPage
            startFolder: window.startFolder
            engineAddress: window.engineAddress
        }
    }
    Timer {
        id: afterFirstFrame
        interval: 30
        onTriggered: loader.active = true
    }
    onFrameSwapped: {
        if (!loader.active && !afterFirstFrame.running)
            afterFirstFrame.start();
    }
}
