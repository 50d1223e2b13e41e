import QtQuick 2.12

// What both screens of companioncost show: pads that light up, the latest hits, the output meters, the connection.
Item {
    id: face
    width: 800
    height: 480
    property var zelta
    property var names: []
    property alias hits: list.model
    property alias status: status.text

    function flash(pad) {
        pads.itemAt(pad).flash();
    }

    Grid {
        columns: 7
        spacing: 8
        Repeater {
            id: pads
            model: face.names
            Rectangle {
                width: 100
                height: 60
                color: "white"
                function flash() {
                    fade.restart();
                }
                Rectangle {
                    anchors.fill: parent
                    color: "orange"
                    opacity: 0
                    NumberAnimation on opacity { id: fade; from: 1; to: 0; duration: 100; running: false }
                }
                Text {
                    text: modelData
                }
            }
        }
    }
    Row {
        y: 160
        spacing: 8
        Repeater {
            model: ["masterOutL", "masterOutR", "monitorOutL", "monitorOutR", "headOutL", "headOutR", "out1Level",
                "out2Level", "out3Level", "out4Level", "out5Level", "out6Level", "out7Level", "out8Level"]
            Rectangle {
                width: 16
                height: 200 * face.zelta[modelData]
                color: "green"
            }
        }
    }
    ListView {
        id: list
        x: 400
        y: 160
        width: 300
        height: 250
        delegate: Text {
            text: name + " " + zoneName + " " + velocity
        }
    }
    Text {
        id: status
        y: 450
    }
}
