import QtQuick 2.9
import QtTest 1.2
import ZeltaConnect 1.0

// Reports of the engine in QML: each property and each signal once. Nothing else may change. inbound.reports tests the
// rules for values.
ModuleTestCase {
    name: "Reports"

    function test_report_data() {
        return [
            { tag: "beat", sent: "BT AC 0003 0000", fired: ["beatChanged: 1"], values: { beat: 3 } },
            { tag: "tempo", sent: "TM AC 0078 0000", fired: ["tempoChanged: 1"], values: { tempo: 120 } },
            { tag: "flash sizes", sent: "FR AC 0001 0002",
              fired: ["sampleFlashSizeChanged: 1", "totalSampleFlashSizeChanged: 1"],
              values: { flashSize: 262144, totalFlashSize: 131076 } },
            { tag: "flash sizes, largest", sent: "FR AC FFFF FFFF",
              fired: ["sampleFlashSizeChanged: 1", "totalSampleFlashSizeChanged: 1"],
              values: { flashSize: 4294836224, totalFlashSize: 4294967294 } },

            // Events that the transfer engine handles are forwarded, too.
            { tag: "engine version", sent: "VN AC 0001 0004",
              fired: ["udpPacketArrived: 1", "zeltaVersionChanged: 1"], values: { zeltaFwVersion: "V 1.04" } },
            { tag: "trigger board version", sent: "TV AC 0001 0004",
              fired: ["triggerVersionChanged: 1", "udpPacketArrived: 1"], values: { triggerFwVersion: "V 65540" } },
            { tag: "sound bank version", sent: "SN AC 0001 0004",
              fired: ["soundbankVersionChanged: 1", "udpPacketArrived: 1"], values: { soundBankVersion: "V 1.04" } },
            { tag: "trigger bank version", sent: "TN AC 0001 0004",
              fired: ["triggerbankVersionChanged: 1", "udpPacketArrived: 1"],
              values: { triggerBankVersion: "V 65540" } },
            { tag: "pedal's raw value", sent: "HL AC 0201 0000",
              fired: ["hihatRawValueChanged: 1", "udpPacketArrived: 1"], values: {} },
            { tag: "acknowledged end", sent: "DE AC 0000 0000", fired: ["udpPacketArrived: 1"], values: {} },
            { tag: "request for data", sent: "DC AC 0005 00BE", fired: ["udpPacketArrived: 1"], values: {} },

            { tag: "strike", sent: "IM AC 9909 6426", fired: ["noteChanged: 1", "notePacketArrived: 1"],
              values: { note: 0x12664, afterTouchNote: 0 } },
            { tag: "choke", sent: "IM AC A90A 7F31",
              fired: ["afterTouchNoteChanged: 1", "notePacketArrived: 1"],
              values: { afterTouchNote: 0x408317F, note: 0 } },
            { tag: "pedal", sent: "IM AC B90B 4004", fired: ["notePacketArrived: 1", "positionChanged: 1"],
              values: { position: 0x440 } },
            { tag: "program", sent: "IM AC C90C 0005", fired: ["notePacketArrived: 1", "programChanged: 1"],
              values: {} },
            { tag: "aux pad", sent: "IM AC 9909 7F5C",
              fired: ["aux3Changed: 2", "noteChanged: 1", "notePacketArrived: 1"],
              values: { aux3Pressed: false, aux4Pressed: false, note: 0xC5C7F } },

            { tag: "power", sent: "SW AC PW 0001", fired: ["powerChanged: 1"],
              values: { powerPressed: true, foot1Pressed: false } },
            { tag: "foot 1", sent: "SW AC F1 0001", fired: ["foot1Changed: 1"],
              values: { foot1Pressed: true, foot2Pressed: false } },
            { tag: "foot 2", sent: "SW AC F2 0001", fired: ["foot2Changed: 1"],
              values: { foot1Pressed: false, foot2Pressed: true } },
            { tag: "aux 3", sent: "SW AC A3 0001", fired: ["aux3Changed: 1"],
              values: { aux3Pressed: true, aux4Pressed: false } },
            { tag: "aux 4", sent: "SW AC A4 0001", fired: ["aux4Changed: 1"],
              values: { aux3Pressed: false, aux4Pressed: true } },
            { tag: "headphones", sent: "SW AC HP 0001", fired: ["hpDetectChanged: 1"],
              values: { hpDetectPressed: true, mixInDetectPressed: false } },
            { tag: "mix input", sent: "SW AC MI 0001", fired: ["mixInDetectChanged: 1"],
              values: { hpDetectPressed: false, mixInDetectPressed: true } },
            { tag: "home", sent: "SW AC HM 0001", fired: ["homeButtonChanged: 1"],
              values: { homeButtonPressed: true, powerPressed: false } },

            { tag: "pot 0 up", sent: "CO AC 0000 0001", fired: ["potPacketArrived: 1", "triggerPot0Inc: 1"],
              values: {} },
            { tag: "pot 1 up", sent: "CO AC 0001 0001", fired: ["potPacketArrived: 1", "triggerPot1Inc: 1"],
              values: {} },
            { tag: "pot 2 up", sent: "CO AC 0002 0001", fired: ["potPacketArrived: 1", "triggerPot2Inc: 1"],
              values: {} },
            { tag: "pot 3 up", sent: "CO AC 0003 FFFF", fired: ["potPacketArrived: 1", "triggerPot3Inc: 1"],
              values: {} },
            { tag: "pot 0 down", sent: "CO AC 0000 0000", fired: ["potPacketArrived: 1", "triggerPot0Dec: 1"],
              values: {} },
            { tag: "pot 1 down", sent: "CO AC 0001 0000", fired: ["potPacketArrived: 1", "triggerPot1Dec: 1"],
              values: {} },
            { tag: "pot 2 down", sent: "CO AC 0002 0000", fired: ["potPacketArrived: 1", "triggerPot2Dec: 1"],
              values: {} },
            { tag: "pot 3 down", sent: "CO AC 0003 0000", fired: ["potPacketArrived: 1", "triggerPot3Dec: 1"],
              values: {} },

            { tag: "master compressor", sent: "CR 0000 0046 008C 0000 0023 0007 FFFF",
              fired: ["masterCpChanged: 1"],
              values: { masterCpInL: 1, masterCpInR: 2, masterCpGrL: 0, masterCpGrR: 0.5, masterCpOutL: 7 / 70,
                        masterCpOutR: 65535 / 70, padCpInL: 0 } },
            { tag: "monitor compressor", sent: "CR 0001 0046 008C 0000 0023 0007 FFFF",
              fired: ["monitorCpChanged: 1"],
              values: { monitorCpInL: 1, monitorCpInR: 2, monitorCpGrL: 0, monitorCpGrR: 0.5,
                        monitorCpOutL: 7 / 70, monitorCpOutR: 65535 / 70, masterCpInL: 0 } },
            { tag: "headphone compressor", sent: "CR 0002 0046 008C 0000 0023 0007 FFFF",
              fired: ["headCpChanged: 1"],
              values: { headCpInL: 1, headCpInR: 2, headCpGrL: 0, headCpGrR: 0.5, headCpOutL: 7 / 70,
                        headCpOutR: 65535 / 70, monitorCpInL: 0 } },
            { tag: "pad compressor", sent: "CR 0003 0046 008C 0000 0023 0007 FFFF", fired: ["padCpChanged: 1"],
              values: { padCpInL: 1, padCpInR: 2, padCpGrL: 0, padCpGrR: 0.5, padCpOutL: 7 / 70,
                        padCpOutR: 65535 / 70, headCpInL: 0 } },
            { tag: "outputs",
              sent: "DR 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC",
              fired: ["outputLevelsChanged: 1"],
              values: { masterOutL: 1, masterOutR: 2, monitorOutL: 3, monitorOutR: 4, headOutL: 5, headOutR: 6,
                        out1Level: 7, out2Level: 8, out3Level: 9, out4Level: 10, out5Level: 11, out6Level: 12,
                        out7Level: 13, out8Level: 14, spdifLLevel: 15, spdifRLevel: 16, usbInLLevel: 17,
                        usbInRLevel: 18 } },

            { tag: "test command", sent: "IM AC B90B 1263 | IM AC B90B 3462 | IM AC B90B 5606",
              fired: ["notePacketArrived: 3", "positionChanged: 3", "testCommand: 1"], values: { position: 0x656 } },
            { tag: "SysEx", sent: "IM AC F004 4110 | IM AC 1004 4212 | IM AC F705 0000",
              fired: ["notePacketArrived: 3", "sysEx: 1"], values: {} },
        ]
    }

    function test_report(row) {
        verify(engine.send(row.sent))
        compare(fired(), row.fired)
        for (const property in row.values)
            compare(zelta[property], row.values[property], property)
        compare(engine.received(), [])
    }

    function test_stateAtTheStart() {
        compare(fired(), [])
        const zeros = ["note", "afterTouchNote", "position", "beat", "tempo", "flashSize", "totalFlashSize",
                       "padCpInL", "masterCpOutR", "monitorCpGrL", "headCpGrR", "masterOutL", "usbInRLevel",
                       "soundBankProgress", "triggerBankProgress", "btfwProgress"]
        for (let i = 0; i < zeros.length; ++i)
            compare(zelta[zeros[i]], 0, zeros[i])
        compare(zelta.powerPressed, false)
        compare(zelta.homeButtonPressed, false)
        compare(zelta.zeltaFwVersion, "V 0.00")
        compare(zelta.triggerFwVersion, "V 0")
        compare(zelta.soundBankVersion, "V 0.00")
        compare(zelta.triggerBankVersion, "V 0")
    }

    function test_argumentsOfReports() {
        verify(engine.send("AB AC 0102 FFFE"))
        compare(argumentsOf("udpPacketArrived", 0), [0x4142, 0x102, 0xFFFE])
        verify(engine.send("SW AC HM 0001 | SW AC HM 0000"))
        compare(argumentsOf("homeButtonChanged", 0), [0])
        compare(argumentsOf("homeButtonChanged", 1), [0])
        verify(engine.send("IM AC C90C FF85"))
        compare(argumentsOf("programChanged", 0), [5])
        verify(engine.send("IM AC B90B 1263 | IM AC B90B 3462 | IM AC B90B 5606"))
        compare(argumentsOf("testCommand", 0), ["12", "34", "56"])
        verify(engine.send("IM AC F004 4110 | IM AC 1004 4212 | IM AC F705 0000"))
        compare(argumentsOf("sysEx", 0), ["04f010410410124205f70000"])
    }
}
