import QtQuick 2.9
import QtTest 1.2
import ZeltaConnect 1.0

// Properties in bindings, and the names of signal arguments in handlers.
Item {
    id: root

    // In a handler the signal's arguments hide other objects with the same names, so the handlers use root.seen.
    property var seen: []

    ZeltaConnect {
        id: zelta
        onUdpPacketArrived: root.seen = ["udpPacketArrived", id, idx, data]
        onPotPacketArrived: root.seen = ["potPacketArrived", id, idx, data]
        onNotePacketArrived: root.seen = ["notePacketArrived", id, idx, data]
        onHihatRawValueChanged: root.seen = ["hihatRawValueChanged", value]
        onHomeButtonChanged: root.seen = ["homeButtonChanged", value, zelta.homeButtonPressed]
        onWaveTransferProgress: root.seen = ["waveTransferProgress", slot, progress]
        onWaveTransferComplete: root.seen = ["waveTransferComplete", slot, complete]
        onSlotInfoReceived: root.seen = ["slotInfoReceived", slot, fileId, slotType]
        onMemInfoReceived: root.seen = ["memInfoReceived", value]
        onSoundbankTransferComplete: root.seen = ["soundbankTransferComplete", complete, retransmitCount]
        onTriggerbankTransferComplete: root.seen = ["triggerbankTransferComplete", complete]
        onBluetoothTransferComplete: root.seen = ["bluetoothTransferComplete", complete]
        onTestCommand: root.seen = ["testCommand", high, low, value]
        onSysEx: root.seen = ["sysEx", value]
        onProgramChanged: root.seen = ["programChanged", program]
        onIntZeltaFirmwareUpdateStarted: root.seen = ["intZeltaFirmwareUpdateStarted", currentVersion, newVersion]
        onIntTriggerFirmwareUpdateStarted: root.seen = ["intTriggerFirmwareUpdateStarted", currentVersion, newVersion]
    }

    QtObject {
        id: shown
        property string tempo: zelta.tempo + " bpm"
        property int velocity: zelta.note & 0xFF
        property int struckPad: (zelta.note >> 16) & 0x0F
        property int zone: zelta.note >> 24
        property bool choked: zelta.afterTouchNote > 0
        property int pedal: zelta.position & 0x7F
        property real meter: Math.max(zelta.masterOutL, zelta.usbInRLevel)
        property real reduction: zelta.headCpGrL + zelta.headCpGrR
        property string power: zelta.powerPressed ? "down" : "up"
        property real freeMemory: zelta.totalFlashSize - zelta.flashSize
        property string versions: [zelta.zeltaFwVersion, zelta.triggerFwVersion].join(", ")
    }

    TestCase {
        name: "Bindings"

        function initTestCase() {
            verify(engine.attach(zelta))
        }

        function test_boundValuesFollow() {
            compare(shown.tempo, "0 bpm")
            compare(shown.versions, "V 0.00, V 0")
            verify(engine.send("TM AC 0078 0000"))
            compare(shown.tempo, "120 bpm")
            verify(engine.send("IM AC 9909 0135"))
            compare([shown.velocity, shown.struckPad, shown.zone], [1, 6, 2])
            verify(engine.send("IM AC A90A 7F31"))
            compare(shown.choked, true)
            verify(engine.send("IM AC B90B 4004"))
            compare(shown.pedal, 64)
            verify(engine.send("DR 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"))
            compare(shown.meter, 1)
            verify(engine.send("DR 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 008C"))
            compare(shown.meter, 2)
            verify(engine.send("CR 0002 0000 0000 0023 0046 0000 0000"))
            compare(shown.reduction, 1.5)
            verify(engine.send("SW AC PW 0001"))
            compare(shown.power, "down")
            verify(engine.send("SW AC PW 0000"))
            compare(shown.power, "up")
            verify(engine.send("FR AC 0200 0001"))
            compare(shown.freeMemory, 67108866 - 131072)
        }

        function test_argumentNamesInHandlers() {
            verify(engine.send("CO AC 0004 0007"))
            compare(root.seen, ["udpPacketArrived", 0x5A5A, root.seen[2], 0]) // the fence of engine.send()
            zelta.udpPacketArrived(1, 2, 65535)
            compare(root.seen, ["udpPacketArrived", 1, 2, 65535])
            zelta.potPacketArrived(1, 2, 3)
            compare(root.seen, ["potPacketArrived", 1, 2, 3])
            zelta.notePacketArrived(1, 2, 3)
            compare(root.seen, ["notePacketArrived", 1, 2, 3])
            zelta.hihatRawValueChanged(4)
            compare(root.seen, ["hihatRawValueChanged", 4])
            zelta.homeButtonChanged(0)
            compare(root.seen, ["homeButtonChanged", 0, false])
            zelta.waveTransferProgress(5, 0.25)
            compare(root.seen, ["waveTransferProgress", 5, 0.25])
            zelta.waveTransferComplete(5, 227)
            compare(root.seen, ["waveTransferComplete", 5, 227])
            zelta.slotInfoReceived(5, "a", "b")
            compare(root.seen, ["slotInfoReceived", 5, "a", "b"])
            zelta.memInfoReceived(6)
            compare(root.seen, ["memInfoReceived", 6])
            zelta.soundbankTransferComplete(255, 70000)
            compare(root.seen, ["soundbankTransferComplete", 255, 70000])
            zelta.triggerbankTransferComplete(255)
            compare(root.seen, ["triggerbankTransferComplete", 255])
            zelta.bluetoothTransferComplete(255)
            compare(root.seen, ["bluetoothTransferComplete", 255])
            zelta.testCommand("1", "2", "3")
            compare(root.seen, ["testCommand", "1", "2", "3"])
            zelta.sysEx("f0")
            compare(root.seen, ["sysEx", "f0"])
            zelta.programChanged(7)
            compare(root.seen, ["programChanged", 7])
            zelta.intZeltaFirmwareUpdateStarted(8, 9)
            compare(root.seen, ["intZeltaFirmwareUpdateStarted", 8, 9])
            zelta.intTriggerFirmwareUpdateStarted(10, 11)
            compare(root.seen, ["intTriggerFirmwareUpdateStarted", 10, 11])
        }
    }
}
