import QtQuick 2.12
import "../style"

// One zone of a pad. A click strikes it, softly at the left end and hard at the right end; a zone that can be choked is
// choked while the click is held.
Rectangle {
    id: strip
    property var zone
    property string label
    property bool current: false
    property bool holding: false
    property bool choked: false
    property real flash: 0

    signal touched()

    objectName: "zone-" + zone.name
    radius: 4
    color: Theme.raised
    border { color: choked ? Theme.alarm : Theme.line; width: choked ? 2 : 1 }

    function strike(velocity) {
        panel.run("strike " + zone.name + " " + velocity);
        holding = true;
        if (zone.canBeChoked)
            hold.restart();
    }
    function release() {
        hold.stop();
        holding = false;
        if (choked) {
            choked = false;
            panel.run("choke " + zone.name + " 0");
        }
    }
    function light(velocity) {
        flash = velocity / 127;
        fading.restart();
    }

    Timer {
        id: hold
        interval: 400
        onTriggered: {
            strip.choked = true;
            panel.run("choke " + strip.zone.name + " 127");
        }
    }
    NumberAnimation {
        id: fading
        target: strip
        property: "flash"
        to: 0
        duration: 450
    }
    // From soft to hard.
    Rectangle {
        anchors { fill: parent; margins: 1 }
        radius: 3
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: 1; color: "#3f4c5c" }
        }
    }
    Rectangle {
        anchors { fill: parent; margins: 1 }
        radius: 3
        color: Theme.sent
        opacity: strip.flash
    }
    Text {
        anchors.fill: parent
        anchors.leftMargin: 6
        verticalAlignment: Text.AlignVCenter
        text: strip.choked ? "choked" : strip.label
        color: strip.flash > 0.5 ? "#241500" : Theme.text
        font.pixelSize: Theme.small
    }
    Rectangle {
        visible: strip.current
        anchors.fill: parent
        radius: 4
        color: "transparent"
        border { color: Theme.accent; width: 2 }
    }
    MouseArea {
        anchors.fill: parent
        onPressed: {
            strip.touched();
            strip.strike(Math.max(1, Math.min(127, Math.round(127 * (mouse.x + 1) / width))));
        }
        onReleased: strip.release()
        onCanceled: strip.release()
    }
}
