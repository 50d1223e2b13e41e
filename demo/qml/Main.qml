import QtQuick 2.12
import QtQuick.Window 2.12
import "style"

// The window. The module's back end blocks while it waits for the engine, so a first frame is shown before
// it is created.
Window {
    id: window
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
    Loader {
        id: loader
        anchors.fill: parent
        active: false
        sourceComponent: Shell {
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
