-- Datagrams of the sound engine: events, MIDI with its bytes swapped in pairs, and meters.
--
-- Each reader returns the text of the datagram. If other datagrams matter, too, it also returns a table for
-- conversation.lua.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns a function.

local EVENT_SIZE = 8
local COMPRESSOR_SIZE = 16
local OUTPUTS_SIZE = 38

-- The level that the module reports as 1.0.
local FULL_SCALE = 70

local switches = {
    PW = "power", F1 = "foot1", F2 = "foot2", A3 = "aux3",
    A4 = "aux4", HP = "headphone", MI = "mixin", HM = "home",
}

local sections = {[0] = "master", [1] = "monitor", [2] = "headphone"}

return function(wire, parameters, queries, fields)
    local engine = {}

    --- True if the datagram has the form of an engine datagram.
    function engine.hasForm(d)
        local bytes, size = d.bytes, d.size
        return size == EVENT_SIZE and bytes:sub(3, 4) == "AC" or size == COMPRESSOR_SIZE and bytes:sub(1, 2) == "CR" or
            size == OUTPUTS_SIZE and bytes:sub(1, 2) == "DR"
    end

    -- MIDI. The bytes of an event are sent as status, code index, second data byte, first data byte.

    local function addPad(d, zone)
        d:addGenerated("pad.number", zone.pad)
        d:addGenerated("pad.name", zone.name)
        d:add("pad.note", 7, 1, d:byte(7))
    end

    local function readStrike(d, note, velocity)
        d:add("pad.velocity", 6, 1, velocity)
        local zone = parameters.zones[note]
        if not zone then
            d:add("pad.note", 7, 1, note)
            d:report("value", string.format("note %d belongs to no pad", note))
            return string.format("note %d velocity %d, no pad", note, velocity)
        end
        addPad(d, zone)
        d:addGenerated("pad.zone", zone.zone)
        return string.format("pad %d %s zone %d velocity %d", zone.pad, zone.name, zone.zone, velocity)
    end

    local function readPressure(d, note, pressure)
        d:add("pad.pressure", 6, 1, pressure)
        local zone = parameters.zones[note]
        if not zone or not zone.canBeChoked then
            d:add("pad.note", 7, 1, note)
            d:report("value", string.format("note %d belongs to no pad that can be choked", note))
            return string.format("note %d pressure %d, no pad", note, pressure)
        end
        addPad(d, zone)
        return string.format("pad %d %s pressure %d", zone.pad, zone.name, pressure)
    end

    local function readController(d, number, value)
        -- The module uses seven bits of each.
        number, value = number % 0x80, value % 0x80
        d:add("controller.number", 7, 1, number)
        d:add("controller.value", 6, 1, value)
        return string.format("controller %d value %d", number, value)
    end

    local function readProgram(d, program)
        program = program % 0x80
        d:add("program", 7, 1, program)
        return string.format("program change %d", program)
    end

    -- By status and code index.
    local midiReaders = {
        [0x9909] = readStrike,
        [0xA90A] = readPressure,
        [0xB90B] = readController,
        [0xC90C] = readProgram,
    }

    local function readMidi(d)
        local status, codeIndex, data2, data1 = d:byte(4), d:byte(5), d:byte(6), d:byte(7)
        local item = d:addBytes("midi.event", 4, 4)
        d:add("midi.status", 4, 1, status, item)
        d:add("midi.code_index", 5, 1, codeIndex, item)
        d:add("midi.data2", 6, 1, data2, item)
        d:add("midi.data1", 7, 1, data1, item)
        local reader = midiReaders[status * 0x100 + codeIndex]
        local bytes = d:text(4, 4)
        return reader and reader(d, data1, data2), {
            kind = "midi",
            bytes = bytes,
            controller = data1,
            value = data2,
        }
    end

    -- Events

    local function addWords(d)
        local index, data = d:word(4), d:word(6)
        d:add("event.index", 4, 2, index)
        d:add("event.data", 6, 2, data)
        return index, data
    end

    local function readBeat(d)
        local beat = addWords(d)
        d:add("beat", 4, 2, beat)
        return string.format("beat %d", beat)
    end

    local function readTempo(d)
        local tempo = addWords(d)
        d:add("tempo", 4, 2, tempo)
        return string.format("tempo %d", tempo)
    end

    local function readSwitch(d)
        local _, value = addWords(d)
        local tag = d:tag(4)
        local name = switches[tag]
        if not name then
            d:report("value", "unknown switch " .. wire.tagText(tag))
        end
        d:add("switch.name", 4, 2, name or wire.tagText(tag))
        d:add("switch.value", 6, 2, value)
        return string.format("switch %s %d", name or wire.tagText(tag), value)
    end

    local function readPot(d)
        local pot, step = addWords(d)
        d:add("pot.number", 4, 2, pot)
        d:add("pot.up", 6, 2, step ~= 0)
        if pot > 3 then
            d:report("value", string.format("there is no pot %d", pot))
        end
        return string.format("pot %d %s", pot, step ~= 0 and "+" or "-")
    end

    local function readFlashSize(d)
        local high, low = addWords(d)
        -- As the module calculates its two properties, in 32 bits.
        local samples = low % 0x8000 * 0x20000
        local total = (high * 0x10000 + low) * 2 % 0x100000000
        d:addGenerated("flash.samples", samples)
        d:addGenerated("flash.total", total)
        return string.format("flash size %d, total %d", samples, total), {kind = "answer", key = "FR"}
    end

    -- That these events answer the requests for slots is an assumption: their form is not known.
    local function readSlotInfo(d)
        local index, data = addWords(d)
        local tag = d:tag(0)
        return string.format("event %s %d %d", tag, index, data), {kind = "answer", key = tag}
    end

    local function readReply(d)
        local first, second = addWords(d)
        local query = d:tag(0)
        local answer = {kind = "answer", key = query}
        d:add("query", 0, 2, query)
        if query == "HL" then
            d:add("hihat.raw", 4, 2, first)
            return string.format("reply HL: %s %d", queries.HL, first), answer
        end
        d:add("version.major", 4, 2, first)
        d:add("version.minor", 6, 2, second)
        return string.format("reply %s: %s %d.%d", query, queries[query], first, second), answer
    end

    local function readEndAcknowledgement(d)
        local _, status = addWords(d)
        d:add("transfer.status", 6, 2, status)
        if status ~= 0 then
            d:report("end_status", string.format("end status 0x%04x", status))
        end
        return string.format("transfer end acknowledged, status 0x%04x", status), {kind = "answer", key = "DE"}
    end

    local function readDataAcknowledgement(d)
        local low, word = addWords(d)
        local code = word % 0x100
        local number = (word - code) / 0x100 * 0x10000 + low
        d:add("transfer.ack_code", 7, 1, code)
        if code == 0x00 then
            d:add("transfer.ack_packet", 4, 3, number)
            return string.format("transfer packet %d acknowledged", number)
        elseif code >= 0xE1 and code <= 0xE3 then
            d:report("refused", string.format("memory full, code 0x%02x", code))
            return string.format("transfer refused, memory full, code 0x%02x", code), {kind = "refusal"}
        elseif code >= 0xE0 and code <= 0xEF then
            d:report("refused", string.format("further data refused, code 0x%02x", code))
            return string.format("transfer refused, code 0x%02x", code), {kind = "refusal"}
        end
        d:add("transfer.resend_from", 4, 3, number)
        d:report("resend", string.format("resend from packet %d", number))
        local text = string.format("transfer resend from packet %d", number)
        if code ~= 0xBE then
            text = string.format("%s, unknown code 0x%02x", text, code)
        end
        return text, {kind = "resend", number = number}
    end

    local eventReaders = {
        IM = readMidi,
        BT = readBeat,
        TM = readTempo,
        SW = readSwitch,
        CO = readPot,
        FR = readFlashSize,
        IS = readSlotInfo,
        IW = readSlotInfo,
        DC = readDataAcknowledgement,
        DE = readEndAcknowledgement,
    }
    for query in pairs(queries) do
        eventReaders[query] = readReply
    end

    local function readEvent(d)
        local tag = d:tag(0)
        d:add("tag", 0, 2, wire.tagText(tag))
        d:add("event.kind", 0, 2, wire.tagText(tag))
        local reader = eventReaders[tag]
        if reader then
            return reader(d)
        end
        local index, data = addWords(d)
        d:report("unknown_tag", "unknown event " .. wire.tagText(tag))
        return string.format("event %s %d %d", wire.tagText(tag), index, data)
    end

    -- Meters

    local function addLevels(d, prefix, names, offset)
        local levels = {}
        for i, name in ipairs(names) do
            local level = d:word(offset)
            local fraction = level / FULL_SCALE
            local item = d:add(prefix .. name, offset, 2, level)
            item:append_text(string.format(" (%.3f)", fraction))
            d:addGenerated("level.fraction", fraction, item)
            levels[i] = level
            offset = offset + 2
        end
        return levels
    end

    local function readCompressorMeters(d)
        d:add("tag", 0, 2, "CR")
        local section = d:word(2)
        local name = sections[section] or "pad"
        d:add("comp.section", 2, 2, section):append_text(" (" .. name .. ")")
        local levels = addLevels(d, "comp.", fields.compressorLevels, 4)
        return string.format("compressor meters %s in %d %d reduction %d %d out %d %d", name, table.unpack(levels)),
            {kind = "answer", key = "CR" .. math.min(section, 3)}
    end

    local function readOutputMeters(d)
        d:add("tag", 0, 2, "DR")
        local levels = addLevels(d, "out.", fields.outputs, 2)
        return "output meters " .. table.concat(levels, " "), {kind = "answer", key = "DR"}
    end

    --- Reads a datagram of the engine into its tree.
    function engine.read(d)
        if d.size == EVENT_SIZE and d:tag(2) == "AC" then
            return readEvent(d)
        elseif d.size == COMPRESSOR_SIZE and d:tag(0) == "CR" then
            return readCompressorMeters(d)
        elseif d.size == OUTPUTS_SIZE and d:tag(0) == "DR" then
            return readOutputMeters(d)
        end
        return d:unreadable("%d bytes of no known form", d.size)
    end

    return engine
end
