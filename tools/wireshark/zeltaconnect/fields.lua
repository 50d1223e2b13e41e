-- Every field that a display filter can name, and every expert information.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns functions.

local fields = {}

local onOff = {[0] = "off", [1] = "on"}

-- In the order of the datagram of output meters.
fields.outputs = {
    "master_left", "master_right", "monitor_left", "monitor_right", "headphone_left", "headphone_right",
    "direct_1", "direct_2", "direct_3", "direct_4", "direct_5", "direct_6", "direct_7", "direct_8",
    "spdif_left", "spdif_right", "usb_left", "usb_right",
}

-- In the order of the datagram of compressor meters.
fields.compressorLevels = {
    "in_left", "in_right", "reduction_left", "reduction_right", "out_left", "out_right",
}

--- The fields by the part of their name that follows "zelta.".
function fields.create()
    local rows = {
        {"text", "string", "Text"},
        {"direction", "string", "Direction"},
        {"tag", "string", "Tag"},

        {"midi.count", "uint16", "Number of events"},
        {"midi.event", "bytes", "MIDI event"},
        {"midi.code_index", "uint8", "Code index", base.HEX},
        {"midi.status", "uint8", "Status", base.HEX},
        {"midi.data1", "uint8", "First data byte"},
        {"midi.data2", "uint8", "Second data byte"},

        {"nrpn.number", "uint16", "Number", base.HEX},
        {"nrpn.msb", "uint8", "Number, high byte", base.HEX},
        {"nrpn.lsb", "uint8", "Number, low byte", base.HEX},
        {"nrpn.name", "string", "Name"},
        {"nrpn.value", "uint8", "Value"},
        {"nrpn.low", "uint8", "Second value byte"},
        {"nrpn.shown", "string", "Value as shown"},

        {"controller.number", "uint8", "Controller"},
        {"controller.value", "uint8", "Controller value"},
        {"note.number", "uint8", "Note"},
        {"note.velocity", "uint8", "Velocity"},
        {"program", "uint8", "Program"},

        {"sysex.message", "bytes", "SysEx message"},
        {"sysex.text", "string", "SysEx as the module reports it"},
        {"sysex.first_in", "framenum", "SysEx begins in frame"},
        {"sysex.events", "uint32", "SysEx events so far"},
        {"testcommand.high", "uint8", "Test command, high byte", base.HEX},
        {"testcommand.low", "uint8", "Test command, low byte", base.HEX},
        {"testcommand.value", "uint8", "Test command, value", base.HEX},

        {"led.number", "uint16", "LED"},
        {"led.state", "uint16", "State", base.DEC, onOff},
        {"curve.id", "uint16", "Trigger curve"},
        {"curve.point", "uint16", "Point"},
        {"bluetooth.name", "string", "Bluetooth name"},

        {"query", "string", "Query"},
        {"version.major", "uint16", "Major version"},
        {"version.minor", "uint16", "Minor version"},
        {"hihat.raw", "uint16", "Hi-hat raw value"},

        {"event.kind", "string", "Event"},
        {"event.index", "uint16", "First word"},
        {"event.data", "uint16", "Second word"},
        {"pad.number", "uint8", "Pad"},
        {"pad.name", "string", "Zone name"},
        {"pad.zone", "uint8", "Zone"},
        {"pad.note", "uint8", "Note"},
        {"pad.velocity", "uint8", "Velocity"},
        {"pad.pressure", "uint8", "Pressure"},
        {"beat", "uint16", "Beat"},
        {"tempo", "uint16", "Tempo in bpm"},
        {"switch.name", "string", "Switch"},
        {"switch.value", "uint16", "Switch value"},
        {"pot.number", "uint16", "Pot"},
        {"pot.up", "bool", "Step up"},
        {"flash.samples", "uint32", "Flash size"},
        {"flash.total", "uint32", "Total flash size"},

        {"comp.section", "uint16", "Section"},
        {"level.fraction", "float", "Fraction of full scale"},

        {"transfer.content", "string", "Content"},
        {"transfer.size", "uint32", "File size"},
        {"transfer.slot", "uint16", "Slot"},
        {"transfer.name", "string", "Name"},
        {"transfer.packet", "uint32", "Packet"},
        {"transfer.words", "uint16", "Words in the chunk"},
        {"transfer.chunk", "bytes", "Chunk"},
        {"transfer.checksum", "uint32", "Checksum", base.HEX},
        {"transfer.computed", "uint32", "Checksum of the packets seen", base.HEX},
        {"transfer.status", "uint16", "End status", base.HEX},
        {"transfer.ack_code", "uint8", "Acknowledgement code", base.HEX},
        {"transfer.ack_packet", "uint32", "Acknowledged packet"},
        {"transfer.resend_from", "uint32", "Resend from packet"},
        {"transfer.start_in", "framenum", "Start packet in frame"},
        {"transfer.end_in", "framenum", "End packet in frame"},
        {"transfer.duration", "relative_time", "Time since the start packet"},
        {"transfer.rate", "double", "Throughput in bytes/s"},
        {"transfer.packets", "uint32", "Data packets seen"},
        {"transfer.resends", "uint32", "Resends seen"},

        {"request_in", "framenum", "Request in frame", base.NONE, frametype.REQUEST},
        {"answer_in", "framenum", "Answer in frame", base.NONE, frametype.RESPONSE},
        {"answer_time", "relative_time", "Time since the request"},
    }
    for _, name in ipairs(fields.outputs) do
        rows[#rows + 1] = {"out." .. name, "uint16", "Output " .. name:gsub("_", " ")}
    end
    for _, name in ipairs(fields.compressorLevels) do
        rows[#rows + 1] = {"comp." .. name, "uint16", "Compressor " .. name:gsub("_", " ")}
    end
    local created = {}
    for _, row in ipairs(rows) do
        created[row[1]] = ProtoField[row[2]]("zelta." .. row[1], table.unpack(row, 3))
    end
    return created
end

--- The expert informations by the last part of their name.
function fields.createExperts()
    local rows = {
        {"malformed", "The datagram cannot be read", expert.group.MALFORMED, expert.severity.ERROR},
        {"unknown_tag", "The tag is unknown", expert.group.UNDECODED, expert.severity.WARN},
        {"violation", "The datagram breaks a rule of the protocol", expert.group.PROTOCOL, expert.severity.WARN},
        {"cut_short", "The capture does not hold the whole datagram", expert.group.UNDECODED, expert.severity.NOTE},
        {"no_start", "No start packet was captured", expert.group.SEQUENCE, expert.severity.NOTE},
        {"gap", "Packet numbers are missing", expert.group.SEQUENCE, expert.severity.WARN},
        {"repeat", "A packet was sent again", expert.group.SEQUENCE, expert.severity.NOTE},
        {"resend", "The engine asks for packets again", expert.group.SEQUENCE, expert.severity.NOTE},
        {"refused", "The engine refuses the file", expert.group.RESPONSE_CODE, expert.severity.WARN},
        {"checksum", "The checksum does not match", expert.group.CHECKSUM, expert.severity.WARN},
        {"end_status", "The engine reports an error at the end", expert.group.RESPONSE_CODE, expert.severity.WARN},
        {"value", "The module ignores this value", expert.group.COMMENTS_GROUP, expert.severity.CHAT},
    }
    local created = {}
    for _, row in ipairs(rows) do
        created[row[1]] = ProtoExpert.new("zelta.expert." .. row[1], table.unpack(row, 2))
    end
    return created
end

return fields
