// The drum kit: every pad with its name, and the zone and velocity of its latest hit.
import QtQuick 2.12
import ZeltaConnect.Companion 1.0

Item {
    width: 980
    height: 240

    Engine {
        id: drums
    }
    HitModel {
        engine: drums
        // Kit.pads and the repeater have the same order.
        onLatestChanged: pads.itemAt(latest.pad).show(latest)
    }

    Grid {
        columns: 7
        spacing: 10
        Repeater {
            id: pads
            model: Kit.pads
            Rectangle {
                id: pad
                objectName: modelData.name
                property string hitText
                function show(hit) {
                    hitText = hit.zoneName + " " + hit.velocity;
                    flash.restart();
                }
                width: 130
                height: 100
                radius: 8
                color: "#e8e8e4"

                Rectangle {
                    anchors.fill: parent
                    radius: pad.radius
                    color: "#f0a020"
                    opacity: 0
                    NumberAnimation on opacity {
                        id: flash
                        running: false
                        from: 1
                        to: 0
                        duration: 300
                    }
                }
                Text {
                    anchors.centerIn: parent
                    text: modelData.name + "\n" + pad.hitText
                }
            }
        }
    }
}
