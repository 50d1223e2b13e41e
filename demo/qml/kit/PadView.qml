import QtQuick 2.12
import "../device"
import "../device/pads.js" as Pads
import "../style"

// One pad of the kit: lights up where it is struck, shows a choke, and plays its note when touched.
Item {
    id: view
    property int pad: 0
    readonly property var about: Pads.all[pad]
    readonly property bool cymbal: about.shape === "cymbal"
    readonly property bool square: about.shape === "plate"
    readonly property int zones: about.zones.length
    property bool choked: false
    property int lastNote: 0
    property int lastVelocity: 0

    objectName: "pad-" + pad
    height: width

    function strike(zone, note, velocity) {
        if (velocity === 0)
            return;
        choked = false;
        lastNote = note;
        lastVelocity = velocity;
        lights.itemAt(Math.min(zone, zones - 1)).flash(velocity / 127);
        ripple.start(velocity / 127);
        figure.opacity = 1;
        figureFading.restart();
    }
    // Pressure on a cymbal's edge chokes it. The mark disappears after some time even without a report of release.
    function press(pressure) {
        choked = pressure > 0;
        choking.restart();
        for (var i = 0; choked && i < zones; ++i)
            lights.itemAt(i).stop();
    }

    Timer {
        id: choking
        interval: 900
        onTriggered: view.choked = false
    }
    Rectangle {
        id: ripple
        property real strength: 0
        anchors.centerIn: parent
        width: parent.width
        height: width
        radius: view.square ? 14 : width / 2
        color: "transparent"
        border.color: Theme.accent
        border.width: 2
        opacity: 0
        function start(velocity) {
            strength = velocity;
            growing.restart();
        }
        ParallelAnimation {
            id: growing
            NumberAnimation {
                target: ripple; property: "width"; duration: 380; easing.type: Easing.OutCubic
                from: view.width; to: view.width + 6 + 12 * ripple.strength
            }
            NumberAnimation {
                target: ripple; property: "opacity"; duration: 380
                from: 0.9 * ripple.strength; to: 0
            }
        }
    }
    PadFace {
        anchors.fill: parent
        shape: view.about.shape
    }
    Repeater {
        id: lights
        model: view.zones
        ZoneLight {
            readonly property real middleInset: view.cymbal ? view.width * 0.36 : view.width * 0.5 - 16
            radius: view.square ? Math.max(4, 14 - inset) : width / 2
            fade: view.cymbal ? 1100 : 520
            inset: index === 0 ? (view.zones > 1 ? 11 : 10) : index === 1 ? 1 : middleInset
            band: index === 0 ? (view.cymbal ? view.width * 0.36 - 11 : 0) : index === 1 ? 9 : 0
        }
    }
    // The outline of the innermost zone.
    Rectangle {
        visible: view.zones > 2
        anchors.centerIn: parent
        width: view.cymbal ? view.width * 0.28 : 32
        height: width
        radius: view.square ? 5 : width / 2
        color: "transparent"
        border.color: "#59626d"
        border.width: 1
        opacity: 0.6
    }
    Rectangle {
        visible: view.choked
        anchors.fill: parent
        radius: view.square ? 14 : width / 2
        color: "#b00d0f12"
        border.color: Theme.text
        border.width: 3
    }
    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        y: view.cymbal ? parent.height * 0.66 : (parent.height - height) / 2
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: view.choked ? "choke" : view.about.name
            color: Theme.text
            font.pixelSize: view.square ? Theme.caption : 14
            font.bold: true
            style: Text.Outline
            styleColor: "#90000000"
        }
    }
    Text {
        id: figure
        anchors.horizontalCenter: parent.horizontalCenter
        y: view.cymbal ? parent.height * 0.15 : parent.height * 0.5 + 10
        text: view.lastVelocity
        opacity: 0
        color: Theme.text
        font.pixelSize: Theme.caption
        style: Text.Outline
        styleColor: "#90000000"
        NumberAnimation {
            id: figureFading
            target: figure
            property: "opacity"
            to: 0
            duration: 1400
            easing.type: Easing.InCubic
        }
    }
    MouseArea {
        anchors.fill: parent
        // The distance from the middle selects the zone, the height on the pad the velocity.
        onPressed: {
            var away = Math.sqrt(Math.pow(mouse.x - width / 2, 2) + Math.pow(mouse.y - height / 2, 2)) / (width / 2);
            if (away > 1 && !view.square)
                return;
            var zone = away > 0.8 ? 1 : away < 0.3 && view.zones > 2 ? 2 : 0;
            var velocity = Math.round(50 + 77 * Math.min(1, Math.max(0, mouse.y / height)));
            Device.send("sendMidiNote", [Pads.noteOf(view.pad, zone), velocity]);
        }
    }
}
