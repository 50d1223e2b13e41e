import QtQuick 2.9
import QtTest 1.2
import ZeltaConnect 1.0

// Calls from screens, and how QML converts arguments that do not fit.
ModuleTestCase {
    name: "Calls"

    function parameter(msb, lsb, value) {
        return "IM 00030BB963" + msb + "0BB962" + lsb + "0BB906" + value
    }

    function test_listOfTexts() {
        compare(zelta.checkBtFw([]), 0)
        compare(zelta.checkBtFw(["/no/such/file.b00"]), -1)
        compare(zelta.checkBtFw(["/no/such/file.b00", "/no/such/file.b01"]), -1)
        compare(engine.received(), [])
    }

    function test_resultsOfCalls() {
        compare(zelta.setMixInLevel(1), undefined)
        compare(typeof zelta.parseJsonFile("/no/such/file.json"), "string")
        compare(zelta.parseJsonFile("/no/such/file.json"), "")
        compare(Object.keys(zelta.parseSoundBankList("/no/such/file.json")), [])
        compare(Object.keys(zelta.parseTriggerBankList("/no/such/file.json")), [])
    }

    // JavaScript numbers have a wider range than the arguments. For arguments of 8 and 16 bits QML rounds and keeps the
    // low bits, for those of 32 bits it takes the integer part.
    function test_numbersThatDoNotFit_data() {
        const rows = []
        const eightBits = [["300", "2C"], ["256", "00"], ["-1", "FF"], ["3.7", "04"], ["2.5", "03"],
                           ["0.4", "00"], ["4294967301", "05"], ["1e10", "00"], ["NaN", "00"],
                           ["true", "01"], ["false", "00"], ["'12'", "0C"], ["'abc'", "00"]]
        for (const [text, dataByte] of eightBits)
            rows.push({ tag: "uchar from " + text, call: "zelta.setMixInLevel(" + text + ")",
                        sent: parameter("37", "06", dataByte) })
        // The result depends on the processor: the smallest number of 64 bits on x86-64, the largest on ARM.
        rows.push({ tag: "uchar from Infinity", call: "zelta.setMixInLevel(Infinity)",
                    sent: parameter("37", "06", "00"), orSent: parameter("37", "06", "FF") })
        const signedEightBits = [["300", "6C"], ["-1", "3F"], ["3.7", "44"], ["200", "08"], ["NaN", "40"]]
        for (const [text, dataByte] of signedEightBits)
            rows.push({ tag: "signed char from " + text,
                        call: "zelta.setInstrumentCoarseTuning(" + text + ", 38)",
                        sent: parameter("18", "26", dataByte) })
        const sixteenBits = [["65656", "00", "32"], ["120.6", "40", "32"], ["-1", "40", "F5"], ["NaN", "00", "F6"]]
        for (const [text, lsb, msb] of sixteenBits)
            rows.push({ tag: "ushort from " + text, call: "zelta.setMetronomeTempo(" + text + ")",
                        sent: "IM 00040BB963370BB962640BB926" + lsb + "0BB906" + msb })
        const integers = [["3.7", "03"], ["-0.6", "00"], ["4294967301", "05"], ["NaN", "00"], ["Infinity", "00"],
                          ["true", "01"], ["'12'", "0C"], ["'abc'", "00"], ["null", "00"], ["undefined", "00"],
                          ["({})", "00"], ["[7]", "07"], ["[7, 8]", "00"]]
        for (const [text, dataByte] of integers)
            rows.push({ tag: "int from " + text, call: "zelta.setAutoOff(" + text + ")",
                        sent: parameter("37", "42", dataByte) })
        const unsignedIntegers = [["1000.9", "68", "07"], ["-1", "7F", "FF"], ["4294968296", "68", "07"],
                                  ["NaN", "00", "00"], ["'1000'", "68", "07"], ["({})", "00", "00"]]
        for (const [text, lsb, msb] of unsignedIntegers)
            rows.push({ tag: "uint from " + text, call: "zelta.setMasterEqLowFreq(" + text + ")",
                        sent: "IM 00040BB963380BB9620C0BB926" + lsb + "0BB906" + msb })
        const doubles = [["NaN", "00"], ["Infinity", "7F"], ["-Infinity", "00"], ["1e308", "7F"], ["5e-324", "00"],
                         ["true", "0E"], ["'4'", "3E"], ["'abc'", "00"], ["null", "00"], ["undefined", "00"],
                         ["({})", "00"]]
        for (const [text, dataByte] of doubles)
            rows.push({ tag: "double from " + text, call: "zelta.setMasterEqMid1Q(" + text + ")",
                        sent: parameter("38", "11", dataByte) })
        const booleans = [["0", "00"], ["1", "01"], ["-1", "01"], ["0.1", "01"], ["NaN", "00"], ["''", "00"],
                          ["'false'", "01"], ["null", "00"], ["undefined", "00"], ["({})", "01"], ["[]", "01"]]
        for (const [text, dataByte] of booleans)
            rows.push({ tag: "bool from " + text, call: "zelta.setBluetoothSwitch(" + text + ")",
                        sent: parameter("37", "41", dataByte) })
        rows.push({ tag: "values of a list", call: "zelta.sendSysEx([1.5, '7', true, null, 300])",
                    sent: "IM 000304F00107040100" + "2C05F70000" })
        rows.push({ tag: "text from a number", call: "zelta.setBluetoothName(25)",
                    sent: "BN 3235000000000000000000000000000000000000000000000000000000000000" })
        rows.push({ tag: "further arguments are ignored", call: "zelta.setMixInLevel(1, 2, 3)",
                    sent: parameter("37", "06", "01") })
        return rows
    }

    function test_numbersThatDoNotFit(row) {
        engine.catchLog()
        eval(row.call)
        compare(engine.caughtWarnings(), [])
        const received = engine.received()
        compare(received, [received[0] === row.orSent ? row.orSent : row.sent])
    }

    function test_tooFewArguments() {
        const names = engine.methodsWithArguments()
        verify(names.length > 0)
        for (let i = 0; i < names.length; ++i) {
            let error = ""
            try {
                zelta[names[i]]()
            } catch (exception) {
                error = String(exception)
            }
            compare(error, "Error: Insufficient arguments", names[i])
        }
        compare(engine.received(), [])
        compare(fired(), [])
    }

    function test_oneArgumentTooFew_data() {
        return [
            { tag: "pad value", call: "zelta.setSoundGroup(1)" },
            { tag: "note", call: "zelta.setPadEqLowGain(38)" },
            { tag: "routing", call: "zelta.setPadMixerMultiFXDirect(1, 2)" },
            { tag: "effect", call: "zelta.setMultiFxParam0(0.5, 0, 1)" },
            { tag: "curve", call: "zelta.sendTriggerCurveData(1)" },
            { tag: "LED", call: "zelta.setLedEnabled(1)" },
        ]
    }

    function test_oneArgumentTooFew(row) {
        let error = ""
        try {
            eval(row.call)
        } catch (exception) {
            error = String(exception)
        }
        compare(error, "Error: Insufficient arguments")
        compare(engine.received(), [])
    }

    // For an argument that cannot be converted, QML logs a warning with the number of the argument and passes 0 or an
    // empty list.
    function test_wrongKinds_data() {
        return [
            { tag: "object for a number", call: "zelta.setMixInLevel({})", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "array for a number", call: "zelta.setMixInLevel([7])", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "function for a number", call: "zelta.setMixInLevel(function() {})", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "null for a number", call: "zelta.setMixInLevel(null)", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "undefined for a number", call: "zelta.setMixInLevel(undefined)", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "the module for a number", call: "zelta.setMixInLevel(zelta)", argument: 0,
              sent: [parameter("37", "06", "00")] },
            { tag: "object for a note", call: "zelta.setSoundGroup(3, {})", argument: 1,
              sent: [parameter("16", "00", "03")] },
            { tag: "object for a tempo", call: "zelta.setMetronomeTempo({})", argument: 0,
              sent: ["IM 00040BB963370BB962640BB926000BB906F6"] },
            { tag: "object for a tuning", call: "zelta.setInstrumentCoarseTuning({}, 38)", argument: 0,
              sent: [parameter("18", "26", "40")] },
            { tag: "number for a list", call: "zelta.sendSysEx(7)", argument: 0, sent: ["IM 000105F0F700"] },
            { tag: "text for a list", call: "zelta.sendSysEx('7E7F')", argument: 0, sent: ["IM 000105F0F700"] },
            { tag: "object for a list", call: "zelta.sendSysEx({})", argument: 0, sent: ["IM 000105F0F700"] },
            { tag: "number for a curve", call: "zelta.sendTriggerCurveData(1, 5)", argument: 1, sent: [] },
            { tag: "object for a curve", call: "zelta.sendTriggerCurveData(1, {})", argument: 1, sent: [] },
        ]
    }

    function test_wrongKinds(row) {
        engine.catchLog()
        eval(row.call)
        const warnings = engine.caughtWarnings()
        verify(warnings.length > 0)
        compare(warnings[0], "\"Could not convert argument " + row.argument + " at\"")
        compare(engine.received(), row.sent)
        compare(fired(), [])
    }

    function test_curveOfTooFewPoints() {
        engine.catchLog()
        zelta.sendTriggerCurveData(7, [1, 2, 3])
        compare(engine.caughtWarnings(), ["trigger curve 7 not sent: it has 3 of 9 points"])
        compare(engine.received(), [])
    }

    // The start packet holds the kind, the size, and data of that kind. The content of the file does not matter.
    function test_files_data() {
        return [
            { tag: "sound bank", call: "zelta.sendSoundBank(path)", start: /^DS SB [0-9A-F]{8}$/ },
            { tag: "trigger bank", call: "zelta.sendTriggerBank(path)", start: /^DS TB [0-9A-F]{8}$/ },
            { tag: "bank to a slot", call: "zelta.sendImportSoundBank(path, 'Kit A', 0x1234)",
              start: /^DS IS [0-9A-F]{8}12344B6974204100$/ },
            { tag: "bank to no slot", call: "zelta.sendImportSoundBank(path, 'Kit A', -1)",
              start: /^DS IS [0-9A-F]{8}$/ },
            { tag: "sample to a slot", call: "zelta.sendImportWaveSample(path, 5)",
              start: /^DS IW [0-9A-F]{8}00057473745F63616C6C732E716D6C00$/ },
            { tag: "bluetooth file", call: "zelta.sendBtFw(path)", start: /^DS BF [0-9A-F]{8}$/ },
        ]
    }

    function test_files(row) {
        const path = Qt.resolvedUrl("tst_calls.qml").toString().replace("file://", "")
        eval(row.call)
        let started = false
        tryVerify(function() {
            started = started || engine.received().some(datagram => row.start.test(datagram))
            return started
        })
    }

    // No transfer starts without a version in the file, or without a file.
    function test_filesThatAreNoFirmware() {
        const path = Qt.resolvedUrl("tst_calls.qml").toString().replace("file://", "")
        zelta.sendZeltaFirmware(path)
        zelta.sendTriggerFirmware(path)
        zelta.sendSoundBank("/no/such/file")
        compare(zelta.backupSoundBankList("/no/such/file"), -1)
        compare(zelta.backupTriggerBankList("/no/such/file"), -1)
        // This query is queued behind all of them.
        zelta.requestSoundBankVersion()
        let all = []
        tryVerify(function() {
            all = all.concat(engine.received())
            return all.length > 0
        })
        compare(all, ["SN 0000"])
        compare(fired(), [])
    }

    function test_notForScreens_data() {
        return [
            { tag: "unknown method", call: "zelta.setNothing(1)" },
            { tag: "private slot for events", call: "zelta.udpPacket(1, 2, 3)" },
            { tag: "private slot for tempo", call: "zelta.updateTempo(120)" },
            { tag: "write path", call: "zelta.writeBinaryData([1])" },
            { tag: "writing tempo", call: "zelta.tempo = 120" },
            { tag: "writing a version", call: "zelta.zeltaFwVersion = 'V 1.00'" },
        ]
    }

    function test_notForScreens(row) {
        let error = null
        try {
            eval(row.call)
        } catch (exception) {
            error = exception
        }
        verify(error instanceof TypeError)
        compare(engine.received(), [])
        compare(fired(), [])
        compare(zelta.tempo, 0)
    }
}
