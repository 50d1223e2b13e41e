-- Datagrams of the module: parameters and other MIDI, LEDs, curves, names, queries and files.
--
-- The texts are the same as in the simulated sound engine. Each reader returns the text of the datagram. If other
-- datagrams matter, too, it also returns a table for conversation.lua.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns a function.

local CONTROL_CHANGE = 0xB9
local SYSEX_START = 0xF0
local SYSEX_END = 0xF7

local HEADER_SIZE = 4
local EVENT_SIZE = 4
local CURVE_POINTS = 9

-- Expected controllers of the parameter forms with three and four events.
local parameterControllers = {
    [3] = {99, 98, 6},
    [4] = {99, 98, 38, 6},
}

local queries = {
    VN = "sound engine version",
    TV = "trigger board version",
    SN = "sound bank version",
    TN = "trigger bank version",
    HL = "hi-hat raw value",
}

local contents = {FW = true, TF = true, SB = true, TB = true, IS = true, IW = true, BF = true}
local namedContents = {IS = true, IW = true}

-- Parameters that are requests, and the answer to each.
local requests = {
    [0x381F] = "CR0", [0x391F] = "CR1", [0x3A1F] = "CR2", [0x3B1F] = "DR",
    [0x3D00] = "IS", [0x3D01] = "IW", [0x3D0F] = "FR",
}
local PAD_COMPRESSOR_REQUEST = 0x2F

return function(wire, parameters)
    local module = {queries = queries}

    local function parameterInfo(msb, lsb)
        local global = parameters.global[msb * 0x100 + lsb]
        if global then
            return global
        end
        local page = parameters.pages[msb]
        return page and {name = page.name:format(lsb), form = page.form}
    end

    -- Two bytes of seven bits. Bit 7 of the low byte must be 0; if it is 1, it also sets bit 0 of the high byte.
    local function fourteenBits(value, low)
        local high = low >= 0x80 and value - value % 2 + 1 or value
        return high * 0x80 + low % 0x80
    end

    local function shownValue(form, value, low)
        if not low then
            return tostring(value)
        elseif form == "tempo" then
            return tostring(20 + value * 2 + math.floor(low / 0x40) % 2)
        elseif form == "frequency" then
            return tostring(fourteenBits(value, low))
        end
        return value .. "/" .. low
    end

    -- MIDI

    local function eventAt(d, index)
        local offset = HEADER_SIZE + EVENT_SIZE * index
        return {
            offset = offset,
            codeIndex = d:byte(offset),
            status = d:byte(offset + 1),
            data1 = d:byte(offset + 2),
            data2 = d:byte(offset + 3),
        }
    end

    local function addEvent(d, event)
        local item = d:addBytes("midi.event", event.offset, EVENT_SIZE)
        d:add("midi.code_index", event.offset, 1, event.codeIndex, item)
        d:add("midi.status", event.offset + 1, 1, event.status, item)
        d:add("midi.data1", event.offset + 2, 1, event.data1, item)
        d:add("midi.data2", event.offset + 3, 1, event.data2, item)
    end

    -- Returns the reason why the events cannot be read, or nil and their number.
    local function eventCount(d)
        local rest = d.size - HEADER_SIZE
        if rest < 0 or rest % EVENT_SIZE ~= 0 then
            return string.format("length %d is not a whole number of events", d.size)
        end
        local count = d:word(2)
        d:add("midi.count", 2, 2, count)
        if count * EVENT_SIZE ~= rest then
            return string.format("header counts %d events, datagram holds %d", count, rest / EVENT_SIZE)
        end
        return nil, count
    end

    local function checkEvents(d, events, codeIndex, status)
        local reported = {}
        local function report(text)
            if not reported[text] then
                reported[text] = true
                d:violation("%s", text)
            end
        end
        for _, event in ipairs(events) do
            if event.codeIndex ~= codeIndex then
                report(string.format("code index 0x%02x instead of 0x%02x", event.codeIndex, codeIndex))
            end
            if event.status ~= status then
                report(string.format("status 0x%02x instead of 0x%02x", event.status, status))
            end
        end
    end

    local function readParameter(d, events)
        local expected = parameterControllers[#events]
        for i, event in ipairs(events) do
            if event.data1 ~= expected[i] then
                return d:unreadable("controller %d instead of %d", event.data1, expected[i])
            end
        end
        checkEvents(d, events, 0x0B, CONTROL_CHANGE)
        local high, low = events[1], events[2]
        local last = events[#events]
        local second = #events == 4 and events[3] or nil
        local info = parameterInfo(high.data2, low.data2)
        local form = info and info.form or "byte"
        local shown = shownValue(form, last.data2, second and second.data2)

        local number = high.data2 * 0x100 + low.data2
        local numberText = string.format("0x%02x/0x%02x", high.data2, low.data2)
        local item = d:add("nrpn.number", high.offset, 2 * EVENT_SIZE, number)
        item:set_text(string.format("NRPN %s %s = %s", numberText, info and info.name or "unknown", shown))
        d:add("nrpn.msb", high.offset + 3, 1, high.data2, item)
        d:add("nrpn.lsb", low.offset + 3, 1, low.data2, item)
        if info then
            d:addGenerated("nrpn.name", info.name, item)
        end
        if second then
            d:add("nrpn.low", second.offset + 3, 1, second.data2, item)
        end
        d:add("nrpn.value", last.offset + 3, 1, last.data2, item)
        d:addGenerated("nrpn.shown", shown, item)
        if info and (form ~= "byte") ~= (second ~= nil) then
            d:violation("%s has %d value byte(s)", info.name, #events - 2)
        end
        local request = requests[number] or high.data2 == PAD_COMPRESSOR_REQUEST and "CR3" or nil
        return string.format("%s %s", info and info.name or "parameter " .. numberText .. " value", shown),
            request and {kind = "request", key = request}
    end

    local singleEvents = {
        [0x08] = {0x89, function(d, event)
            d:add("note.number", event.offset + 2, 1, event.data1)
            d:add("note.velocity", event.offset + 3, 1, event.data2)
            return string.format("note off %d", event.data1)
        end},
        [0x09] = {0x99, function(d, event)
            d:add("note.number", event.offset + 2, 1, event.data1)
            d:add("note.velocity", event.offset + 3, 1, event.data2)
            return string.format("note on %d velocity %d", event.data1, event.data2)
        end},
        [0x0B] = {CONTROL_CHANGE, function(d, event)
            d:add("controller.number", event.offset + 2, 1, event.data1)
            d:add("controller.value", event.offset + 3, 1, event.data2)
            if event.data1 == 7 then
                return string.format("drum kit volume %d", event.data2)
            end
            return string.format("controller %d value %d", event.data1, event.data2)
        end},
        [0x0C] = {0xC9, function(d, event)
            d:add("program", event.offset + 2, 1, event.data1)
            return string.format("program change %d", event.data1)
        end},
    }

    local function readSingleEvent(d, event)
        local row = singleEvents[event.codeIndex]
        if not row then
            return d:unreadable("unknown code index 0x%02x", event.codeIndex)
        end
        checkEvents(d, {event}, event.codeIndex, row[1])
        return row[2](d, event)
    end

    -- The code index of an event of the module's SysEx: it counts the values that follow, without the closing F7.
    local function sysExCodeIndex(valuesToCome)
        return ({[0] = 0x05, [1] = 0x06, [2] = 0x07})[valuesToCome] or 0x04
    end

    local function readSysEx(d, events)
        local parts = {}
        for i, event in ipairs(events) do
            parts[i] = string.char(event.status, event.data1, event.data2)
        end
        local stream = table.concat(parts)
        local message = stream:gsub("\0+$", "")
        if #stream - #message > 2 or message:byte(-1) ~= SYSEX_END then
            return d:unreadable("SysEx stream without its end")
        end
        local values = #message - 2
        for i, event in ipairs(events) do
            -- The first event contains F0 and two values, each further event three values.
            local expected = sysExCodeIndex(values - (i == 1 and 0 or 3 * (i - 1) - 1))
            if event.codeIndex ~= expected then
                d:violation("SysEx event %d has code index 0x%02x instead of 0x%02x", i - 1, event.codeIndex,
                    expected)
            end
        end
        d:addGathered("sysex.message", "SysEx", message)
        return "sysex " .. wire.hexText(message)
    end

    local function readMidi(d)
        local problem, count = eventCount(d)
        if problem then
            return d:unreadable("%s", problem)
        elseif count == 0 then
            return d:unreadable("no event")
        end
        local events = {}
        for i = 1, count do
            events[i] = eventAt(d, i - 1)
            addEvent(d, events[i])
        end
        if events[1].status == SYSEX_START then
            return readSysEx(d, events)
        elseif count == 1 then
            return readSingleEvent(d, events[1])
        elseif parameterControllers[count] then
            return readParameter(d, events)
        end
        return d:unreadable("%d events in one packet", count)
    end

    local function readPowerOff(d)
        local problem, count = eventCount(d)
        if problem then
            return d:unreadable("%s", problem)
        end
        local events = {}
        for i = 1, count do
            events[i] = eventAt(d, i - 1)
            addEvent(d, events[i])
        end
        local first, second = events[1], events[2]
        if count ~= 2 or first.data1 ~= 99 or first.data2 ~= 79 or second.data1 ~= 98 or second.data2 ~= 70 then
            return d:unreadable("power-off without its two events 99=79 and 98=70")
        end
        checkEvents(d, events, 0x0B, CONTROL_CHANGE)
        return "power off"
    end

    -- Records of a fixed length

    local function readLed(d)
        if d.size ~= 6 then
            return d:unreadable("LED record of %d bytes", d.size)
        end
        local number, state = d:word(2), d:word(4)
        d:add("led.number", 2, 2, number)
        d:add("led.state", 4, 2, state)
        if state > 1 then
            d:violation("LED state %d", state)
        end
        return string.format("LED %d %s", number, state ~= 0 and "on" or "off")
    end

    local function readTriggerCurve(d)
        if d.size ~= 22 then
            return d:unreadable("trigger curve of %d bytes", d.size)
        end
        local id = d:word(2)
        d:add("curve.id", 2, 2, id)
        local points = {}
        for i = 1, CURVE_POINTS do
            local offset = 2 + 2 * i
            local point = d:word(offset)
            d:add("curve.point", offset, 2, point)
            if point > 0xFF then
                d:violation("curve point %d has a high byte", i - 1)
            end
            points[i] = point % 0x100
        end
        return string.format("trigger curve %d: %s", id, table.concat(points, " "))
    end

    local function readBluetoothName(d)
        if d.size ~= 34 then
            return d:unreadable("bluetooth name of %d bytes", d.size)
        end
        local field = d:text(2)
        local name = field:match("^[^\0]*")
        if field:find("[^\0]", #name + 1) then
            d:violation("bluetooth name is followed by more than zeros")
        end
        local quoted = wire.quoted(name)
        d:add("bluetooth.name", 2, 32, quoted:sub(2, -2))
        return "bluetooth name " .. quoted
    end

    local function readQuery(d)
        if d.size ~= 4 then
            return d:unreadable("query of %d bytes", d.size)
        end
        local query = d:tag(0)
        d:add("query", 0, 2, query)
        if d:word(2) ~= 0 then
            d:violation("query with second word %d", d:word(2))
        end
        return string.format("query %s: %s", query, queries[query]), {kind = "request", key = query}
    end

    -- Files

    local function readStart(d, content)
        local size = d:long(4)
        d:add("transfer.size", 4, 4, size)
        local start = {kind = "start", content = content, size = size}
        local text = string.format("transfer start %s, %d bytes", content, size)
        if d.size == 8 then
            return text, start
        end
        local isNamed = namedContents[content]
        local hasSlot = isNamed or content == "BF"
        if not hasSlot or d.size < 10 or (not isNamed and d.size ~= 10) then
            return d:unreadable("%s start packet of %d bytes", content, d.size)
        end
        local slot = d:word(8)
        d:add("transfer.slot", 8, 2, slot)
        text = string.format("%s, slot %d", text, slot)
        if isNamed and d.size > 10 then
            local field = d:text(10)
            local name = field:match("^[^\0]*")
            if #name ~= #field - 1 then
                d:violation("name of a start packet without exactly one closing zero")
            end
            if name ~= "" then
                local quoted = wire.quoted(name)
                d:add("transfer.name", 10, #name, quoted:sub(2, -2))
                text = text .. ", name " .. quoted
            end
        end
        return text, start
    end

    local function readData(d, content)
        if d.size < 10 then
            return d:unreadable("data packet of %d bytes", d.size)
        end
        local number, words, length = d:long(4), d:word(8), d.size - 10
        d:add("transfer.packet", 4, 4, number)
        d:add("transfer.words", 8, 2, words)
        if d.captured > 10 then
            d:addBytes("transfer.chunk", 10, length)
        end
        if words * 2 ~= length then
            return d:unreadable("data packet %d announces %d words and holds %d bytes", number, words, length)
        end
        local chunk = d.captured == d.size and d.bytes:sub(11) or nil
        return string.format("transfer data %s, packet %d, %d bytes", content, number, length),
            {kind = "data", content = content, number = number, length = length, chunk = chunk}
    end

    local function readEnd(d, content)
        if d.size ~= 8 then
            return d:unreadable("end packet of %d bytes", d.size)
        end
        local checksum = d:long(4)
        d:add("transfer.checksum", 4, 4, checksum)
        return string.format("transfer end %s, checksum 0x%08x", content, checksum),
            {kind = "end", content = content, checksum = checksum}
    end

    local transferReaders = {DS = readStart, DC = readData, DE = readEnd}

    local function readTransfer(d)
        if d.size < 8 then
            return d:unreadable("transfer packet of %d bytes", d.size)
        end
        local content = d:tag(2)
        d:add("transfer.content", 2, 2, wire.tagText(content))
        if not contents[content] then
            return d:unreadable("transfer of unknown content %s", wire.tagText(content))
        end
        return transferReaders[d:tag(0)](d, content)
    end

    local readers = {
        IM = readMidi,
        PW = readPowerOff,
        LD = readLed,
        TC = readTriggerCurve,
        BN = readBluetoothName,
        DS = readTransfer,
        DC = readTransfer,
        DE = readTransfer,
    }
    for query in pairs(queries) do
        readers[query] = readQuery
    end

    --- Reads a datagram of the module into its tree.
    function module.read(d)
        if d.size < 2 then
            return d:unreadable("datagram of %d bytes", d.size)
        end
        local tag = d:tag(0)
        d:add("tag", 0, 2, wire.tagText(tag))
        local reader = readers[tag]
        if not reader then
            d:report("unknown_tag", "unknown header " .. wire.tagText(tag))
            return "unreadable datagram: unknown header " .. wire.tagText(tag)
        end
        return reader(d)
    end

    return module
end
