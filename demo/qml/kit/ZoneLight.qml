import QtQuick 2.12
import "../style"

// The light of one zone. Its brightness follows the velocity, then it fades.
Rectangle {
    id: light
    property real inset: 0
    property real band: 0
    property int fade: 520
    property real level: 0

    anchors.fill: parent
    anchors.margins: inset
    radius: width / 2
    color: band > 0 ? "transparent" : Theme.accent
    border.color: Theme.accent
    border.width: band
    opacity: level
    visible: level > 0.01

    function flash(strength) {
        fading.stop();
        level = 0.25 + 0.75 * strength;
        fading.start();
    }
    function stop() {
        fading.stop();
        level = 0;
    }
    NumberAnimation {
        id: fading
        target: light
        property: "level"
        to: 0
        duration: light.fade
        easing.type: Easing.OutQuad
    }
}
