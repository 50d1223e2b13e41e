import QtQuick 2.12

// The latest events of the module, in the order of their arrival. Output levels are only counted, because they would
// displace all other events.
QtObject {
    id: log
    property var module
    property bool paused: false
    property int count: 0
    property int levelReports: 0
    property int compressorReports: 0
    property string lastSysEx
    property string lastTestCommand
    readonly property ListModel events: ListModel {}
    readonly property int most: 100

    function add(name, values) {
        count += 1;
        if (paused)
            return;
        events.insert(0, { number: count, name: name, values: String(values) });
        if (events.count > most)
            events.remove(most);
    }
    // For events of a high rate: replaces the latest event if it has the same name.
    function replace(name, values) {
        if (paused || events.count === 0 || events.get(0).name !== name) {
            add(name, values);
        } else {
            count += 1;
            events.set(0, { number: count, name: name, values: String(values) });
        }
    }
    function clear() {
        events.clear();
    }

    function hexadecimal(v) {
        return "0x" + v.toString(16).toUpperCase();
    }
    function list(values) {
        return Array.prototype.join.call(values, "  ");
    }
    // A tag of two letters, and two numbers.
    function plainEvent(id, first, second) {
        add("event " + String.fromCharCode(id >> 8, id & 0xff), first + "  " + second);
    }
    function state(pressed) {
        return pressed ? "on" : "off";
    }

    Component.onCompleted: {
        followPads();
        followPanel();
        followReports();
        followTransfers();
        followFirmware();
    }
    function followPads() {
        var m = module;
        m.noteChanged.connect(function() { log.add("note", log.hexadecimal(m.note)); });
        m.afterTouchNoteChanged.connect(function() { log.add("aftertouch", log.hexadecimal(m.afterTouchNote)); });
        m.positionChanged.connect(function() { log.add("position", log.hexadecimal(m.position)); });
        m.beatChanged.connect(function() { log.add("beat", m.beat); });
        m.tempoChanged.connect(function() { log.add("tempo", m.tempo); });
        m.programChanged.connect(function(program) { log.add("program", program); });
    }
    function followPanel() {
        var m = module;
        m.powerChanged.connect(function() { log.add("power", log.state(m.powerPressed)); });
        m.foot1Changed.connect(function() { log.add("foot 1", log.state(m.foot1Pressed)); });
        m.foot2Changed.connect(function() { log.add("foot 2", log.state(m.foot2Pressed)); });
        m.aux3Changed.connect(function() { log.add("aux 3", log.state(m.aux3Pressed)); });
        m.aux4Changed.connect(function() { log.add("aux 4", log.state(m.aux4Pressed)); });
        m.hpDetectChanged.connect(function() { log.add("headphone plug", log.state(m.hpDetectPressed)); });
        m.mixInDetectChanged.connect(function() { log.add("mix-in plug", log.state(m.mixInDetectPressed)); });
        m.homeButtonChanged.connect(function() { log.add("home", log.state(m.homeButtonPressed)); });
        m.triggerPot0Inc.connect(function() { log.add("pot 1", "+"); });
        m.triggerPot1Inc.connect(function() { log.add("pot 2", "+"); });
        m.triggerPot2Inc.connect(function() { log.add("pot 3", "+"); });
        m.triggerPot3Inc.connect(function() { log.add("pot 4", "+"); });
        m.triggerPot0Dec.connect(function() { log.add("pot 1", "\u2212"); });
        m.triggerPot1Dec.connect(function() { log.add("pot 2", "\u2212"); });
        m.triggerPot2Dec.connect(function() { log.add("pot 3", "\u2212"); });
        m.triggerPot3Dec.connect(function() { log.add("pot 4", "\u2212"); });
    }
    function followReports() {
        var m = module;
        m.outputLevelsChanged.connect(function() { log.levelReports += 1; });
        m.masterCpChanged.connect(function() { log.compressorReports += 1; });
        m.monitorCpChanged.connect(function() { log.compressorReports += 1; });
        m.headCpChanged.connect(function() { log.compressorReports += 1; });
        m.padCpChanged.connect(function() { log.compressorReports += 1; });
        m.udpPacketArrived.connect(plainEvent);
        m.sampleFlashSizeChanged.connect(function() { log.add("sample memory", m.flashSize); });
        m.totalSampleFlashSizeChanged.connect(function() { log.add("whole memory", m.totalFlashSize); });
        m.slotInfoReceived.connect(function() { log.add("slot", log.list(arguments)); });
        m.memInfoReceived.connect(function(value) { log.add("memory", value); });
        m.hihatRawValueChanged.connect(function(value) { log.add("pedal raw value", value); });
        m.sysEx.connect(function(value) {
            log.lastSysEx = value;
            log.add("SysEx", value);
        });
        m.testCommand.connect(function(high, low, value) {
            log.lastTestCommand = log.list(arguments);
            log.add("test command", log.lastTestCommand);
        });
    }
    function followTransfers() {
        var m = module;
        m.soundProgressChanged.connect(function() { log.replace("bank sent", m.soundBankProgress.toFixed(3)); });
        m.triggerProgressChanged.connect(function() { log.replace("triggers sent", m.triggerBankProgress.toFixed(3)); });
        m.btfwProgressChanged.connect(function() { log.replace("bluetooth sent", m.btfwProgress.toFixed(3)); });
        m.waveTransferProgress.connect(function(slot, part) { log.replace("slot " + slot + " sent", part.toFixed(3)); });
        m.soundbankTransferComplete.connect(function() { log.add("bank end", log.list(arguments)); });
        m.triggerbankTransferComplete.connect(function(status) { log.add("triggers end", status); });
        m.bluetoothTransferComplete.connect(function(status) { log.add("bluetooth end", status); });
        m.waveTransferComplete.connect(function(slot, status) { log.add("slot " + slot + " end", status); });
    }
    function followFirmware() {
        var m = module;
        m.zeltaVersionChanged.connect(function() { log.add("engine version", m.zeltaFwVersion); });
        m.triggerVersionChanged.connect(function() { log.add("trigger version", m.triggerFwVersion); });
        m.soundbankVersionChanged.connect(function() { log.add("bank version", m.soundBankVersion); });
        m.triggerbankVersionChanged.connect(function() { log.add("trigger bank", m.triggerBankVersion); });
        m.intFwUpdateStarted.connect(function() { log.add("update", "started"); });
        m.intFwUpdateFinished.connect(function() { log.add("update", "finished"); });
        m.updateZeltaFwComplete.connect(function() { log.add("engine update", "acknowledged"); });
        m.intZeltaFirmwareUpdateStarted.connect(function() { log.add("engine update", log.list(arguments)); });
        m.intTriggerFirmwareUpdateStarted.connect(function() { log.add("trigger update", log.list(arguments)); });
        m.intZeltaFirmwareUpdateFinished.connect(function() { log.add("engine update", "finished"); });
        m.intTriggerFirmwareUpdateFinished.connect(function() { log.add("trigger update", "finished"); });
    }
}
