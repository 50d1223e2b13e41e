// Faders that send at most 25 values per second each, and always the last one.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    width: 480
    height: 320

    Engine {
        id: drums
    }
    Row {
        anchors.fill: parent
        Repeater {
            model: ["setMasterOutLevel", "setMonitorOutLevel", "setHeadphoneOutLevel"]
            Slider {
                objectName: modelData
                height: parent.height
                orientation: Qt.Vertical
                to: 127
                stepSize: 1
                value: level.value
                onMoved: level.set(value)
                Parameter {
                    id: level
                    engine: drums
                    method: modelData
                    initial: 100
                    interval: 40
                }
            }
        }
    }
}
