// One engine object for all pages. Pages are created when they are shown; the object and the settings are not.
import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 480
    height: 320
    property int page: 0

    Engine {
        id: drums
    }
    // A setting in a page would forget its value with the page.
    Parameter {
        id: master
        engine: drums
        method: "setMasterOutLevel"
        initial: 100
    }
    HitModel {
        id: hits
        engine: drums
    }

    Loader {
        anchors.fill: parent
        sourceComponent: [mixer, hitList][screen.page]
    }
    Component {
        id: mixer
        Item {
            Slider {
                objectName: "master"
                to: master.to
                stepSize: 1
                value: master.value
                onMoved: master.set(value)
            }
        }
    }
    Component {
        id: hitList
        ListView {
            objectName: "hits"
            model: hits
            delegate: Text {
                text: model.name + " " + model.velocity
            }
        }
    }
}
