// A small screen of one's own, which tst_screen.qml and cpptest/ test.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    width: 480
    height: 320

    Engine {
        id: drums
    }
    HitModel {
        id: hits
        engine: drums
    }
    Parameter {
        id: level
        engine: drums
        method: "setMasterOutLevel"
        initial: 100
    }

    Column {
        anchors.centerIn: parent
        spacing: 20
        Text {
            objectName: "signal"
            text: drums.connected ? "connected" : "no signal"
        }
        Text {
            objectName: "hit"
            text: hits.latest ? hits.latest.name + " " + hits.latest.velocity : "no hit"
        }
        Slider {
            objectName: "level"
            width: 400
            to: 127
            stepSize: 1
            value: level.value
            onMoved: level.set(value)
        }
    }
}
