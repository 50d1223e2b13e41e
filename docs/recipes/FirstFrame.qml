// Shows a frame before it creates the engine object, whose constructor blocks for up to 10 s.
import QtQuick 2.12
import QtQuick.Window 2.12
import ZeltaConnect.Companion 1.0

Window {
    width: 1280
    height: 800
    visible: true

    Text {
        objectName: "waiting"
        anchors.centerIn: parent
        visible: screen.status !== Loader.Ready
        text: "Waiting for the engine"
    }
    Loader {
        id: screen
        anchors.fill: parent
        active: false
        sourceComponent: Item {
            Engine {
                id: drums
            }
            Text {
                objectName: "signal"
                anchors.centerIn: parent
                text: drums.connected ? "connected" : "no signal"
            }
        }
    }
    // The window system needs a moment to show the frame that was swapped.
    Timer {
        id: afterFirstFrame
        interval: 30
        onTriggered: screen.active = true
    }
    onFrameSwapped: {
        if (!screen.active)
            afterFirstFrame.start();
    }
}
