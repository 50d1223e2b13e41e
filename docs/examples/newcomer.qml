import QtQuick 2.12
import QtQuick.Controls 2.12
import ZeltaConnect.Companion 1.0

Rectangle {
    id: screen
    width: 960
    height: 540
    color: "#f4f4f2"
    property int pad: 1

    Engine {
        id: drums
        Component.onCompleted: {
            zelta.requestSoundBankVersion();
            zelta.requestTriggerBankVersion();
        }
    }
    HitModel {
        engine: drums
        onLatestChanged: pads.itemAt(latest.pad).flash(latest)
    }
    // The meters are reported on request.
    Timer { interval: 33; repeat: true; running: true; onTriggered: drums.ask() }

    Grid {
        x: 20; y: 20; columns: 7; spacing: 10
        Repeater {
            id: pads
            model: Kit.pads
            Rectangle {
                width: 123; height: 80; radius: 8; color: "white"
                border { width: 2; color: screen.pad === index ? "#2a6fb0" : "#d0d0cc" }
                function flash(hit) {
                    zone.text = hit.zoneName + " " + hit.velocity;
                    fade.restart();
                }
                Rectangle {
                    anchors.fill: parent; radius: 8; color: "#f0a020"; opacity: 0
                    NumberAnimation on opacity { id: fade; from: 1; to: 0; duration: 400; running: false }
                }
                Text { anchors.centerIn: parent; text: modelData.name; font.pixelSize: 18 }
                Text { id: zone; x: 10; y: 54; color: "#606060" }
                MouseArea { anchors.fill: parent; onClicked: screen.pad = index }
            }
        }
    }

    Column {
        x: 20; y: 220; spacing: 12
        Text { text: drums.connected ? "Connected, " + drums.eventsPerSecond + " events/s" : "No signal" }
        Text { text: "Pedal" }
        ProgressBar { to: 127; value: drums.pedal }
        Text { text: "Master" }
        ProgressBar { value: drums.zelta.masterOutL }
        ProgressBar { value: drums.zelta.masterOutR }
        Slider {
            to: 127; value: level.value
            onMoved: level.set(value)
            Parameter { id: level; engine: drums; method: "setMasterOutLevel"; initial: 100 }
        }
        Text { text: "Tempo " + (drums.zelta.tempo || tempo.value) }
        Button {
            text: "Tap"
            property var taps: []
            onPressed: {
                drums.zelta.setMetronomeTap(true);
                var now = Date.now();
                taps = taps.filter(function(tap) { return now - tap < 3000; }).concat(now);
                if (taps.length > 1)
                    tempo.set(60000 * (taps.length - 1) / (now - taps[0]));
            }
            onReleased: drums.zelta.setMetronomeTap(false)
            Parameter { id: tempo; engine: drums; method: "setMetronomeTempo"; from: 20; to: 275; initial: 120 }
        }
    }

    Column {
        x: 310; y: 220; spacing: 8
        Text { text: "Equaliser of " + Kit.pads[screen.pad].name; font.bold: true }
        Switch {
            text: "On"; checked: on.value === 1; onToggled: on.set(checked)
            Parameter { id: on; engine: drums; method: "setPadEqActive"; leading: [Kit.noteOf(screen.pad)]; to: 1 }
        }
        Repeater {
            model: [["Low", "setPadEqLowGain"], ["Middle", "setPadEqMid1Gain"], ["High", "setPadEqHighGain"]]
            Column {
                Parameter {
                    id: gain
                    engine: drums; method: modelData[1]; leading: [Kit.noteOf(screen.pad)]
                    from: -15; to: 15; initial: 0; unit: "dB"
                }
                Text { text: modelData[0] + ": " + gain.text }
                Slider { from: -15; to: 15; value: gain.value; onMoved: gain.set(value) }
            }
        }
    }

    Column {
        x: 600; y: 220; width: 340; spacing: 12
        Text { text: "Sound bank"; font.bold: true }
        TextField { id: path; width: parent.width; placeholderText: "/media/usb/kit.bin"; selectByMouse: true }
        FileTransfer { id: upload; engine: drums; kind: FileTransfer.SoundBank; source: path.text }
        Row {
            spacing: 10
            Button { text: "Send"; enabled: !upload.active; onClicked: upload.start() }
            Button { text: "Cancel"; enabled: upload.active; onClicked: upload.cancel() }
        }
        ProgressBar { width: parent.width; value: upload.progress }
        Text {
            width: parent.width; wrapMode: Text.Wrap
            text: upload.active && upload.secondsLeft > 0 ? Math.ceil(upload.secondsLeft) + " s left" : upload.message
        }
        Text {
            text: "Sound bank: " + drums.zelta.soundBankVersion + "\nTrigger bank: " + drums.zelta.triggerBankVersion
                  + "\nEngine: " + drums.zelta.zeltaFwVersion + "\nTrigger board: " + drums.zelta.triggerFwVersion
        }
    }
}
