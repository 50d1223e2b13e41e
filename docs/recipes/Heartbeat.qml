// Shows whether the engine answers, and sends the settings again when it returns.
import QtQuick 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 480
    height: 320

    Engine {
        id: drums
        onRestarted: screen.sendSettings()
    }
    // The engine does not report its settings. The screen has the only copy.
    Parameter {
        id: master
        objectName: "master"
        engine: drums
        method: "setMasterOutLevel"
        initial: 100
    }
    function sendSettings() {
        master.resend();
    }

    Text {
        objectName: "signal"
        anchors.centerIn: parent
        text: drums.connected ? "connected" : "no signal"
    }
}
