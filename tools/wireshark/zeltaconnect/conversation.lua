-- Information from several datagrams: requests and answers, SysEx, test commands, files.
--
-- Wireshark dissects all datagrams once in order, and again in any order when it shows them. State changes only the
-- first time; the results are kept for each frame.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns a function.

local SYSEX_START = 0xF0
-- A message that has grown to 4 MiB without an end is dropped at the next event.
local MOST_SYSEX_EVENTS = 1024 * 1024
local CONTROL_CHANGE = "\xB9\x0B"
-- The three controllers of a test command, in the order of its arguments.
local testCommandParts = {[99] = 1, [98] = 2, [6] = 3}

return function(wire, newTransfer)
    local conversation = {}

    -- By the addresses and ports of both ends.
    local conversations
    -- By frame number: results that depend on other frames.
    local facts

    function conversation.reset()
        conversations = {}
        facts = {}
    end
    conversation.reset()

    --- The conversation of a datagram, by the engine's end and the module's.
    function conversation.of(pinfo, toEngine)
        local source = tostring(pinfo.src) .. ":" .. pinfo.src_port
        local destination = tostring(pinfo.dst) .. ":" .. pinfo.dst_port
        local key = toEngine and destination .. " " .. source or source .. " " .. destination
        local found = conversations[key]
        if not found then
            found = {requests = {}, sysEx = {}, testCommand = {count = 0, values = {}}}
            conversations[key] = found
        end
        return found
    end

    local function factsOf(number)
        local found = facts[number]
        if not found then
            found = {}
            facts[number] = found
        end
        return found
    end

    -- Requests and answers. An answer belongs to the latest request of its kind.

    local function learnRequest(talk, frame, key)
        talk.requests[key] = frame
    end

    local function learnAnswer(talk, frame, key)
        local request = talk.requests[key]
        if request then
            talk.requests[key] = nil
            local known = factsOf(frame.number)
            known.requestIn = request.number
            known.answerTime = frame.time - request.time
            factsOf(request.number).answerIn = frame.number
        end
    end

    -- SysEx and test commands, assembled as in the module.

    -- The event in the order of USB-MIDI: code index, then the MIDI bytes.
    local function unswapped(bytes)
        local a, b, c, d = bytes:byte(1, 4)
        return string.char(b, a, d, c)
    end

    -- The message in the gathered events: three bytes of each, up to the closing F7.
    local function sysExMessage(events)
        local parts = {}
        for i, event in ipairs(events) do
            parts[i] = event:sub(2, 4)
        end
        local message = table.concat(parts)
        local last = message:find("\xF7", math.max(1, #message - 2), true)
        return last and message:sub(1, last) or message
    end

    local function plainHex(bytes)
        return (bytes:gsub(".", function(byte) return string.format("%02x", byte:byte()) end))
    end

    -- The module finds the end in the hexadecimal text, also across two bytes.
    local function endsSysEx(bytes)
        return plainHex(bytes):find("f7", 1, true) ~= nil
    end

    local function learnSysEx(talk, frame, what)
        local gathered = talk.sysEx
        local starts = what.bytes:byte(1) == SYSEX_START
        local ends = not starts and endsSysEx(what.bytes)
        if not starts and not ends and #gathered == 0 then
            return false
        end
        if #gathered >= MOST_SYSEX_EVENTS then
            gathered = {}
            talk.sysEx = gathered
        end
        if #gathered == 0 then
            talk.sysExFirst = frame.number
        end
        gathered[#gathered + 1] = unswapped(what.bytes)
        local known = factsOf(frame.number)
        known.sysExFirstIn = talk.sysExFirst
        known.sysExEvents = #gathered
        if ends then
            known.sysExMessage = sysExMessage(gathered)
            known.sysExText = plainHex(table.concat(gathered))
            talk.sysEx = {}
        end
        return true
    end

    local function learnTestCommand(talk, frame, what)
        local part = testCommandParts[what.controller]
        if what.bytes:sub(1, 2) ~= CONTROL_CHANGE or not part then
            return
        end
        local command = talk.testCommand
        command.values[part] = what.value
        command.count = command.count + 1
        if part == 3 and command.count > 2 then
            command.count = 0
            -- In the module, a missing part is an empty text.
            factsOf(frame.number).testCommand = {command.values[1], command.values[2], command.values[3]}
        end
    end

    local learners = {
        request = function(talk, frame, what) learnRequest(talk, frame, what.key) end,
        answer = function(talk, frame, what)
            learnAnswer(talk, frame, what.key)
            if what.key == "DE" and talk.transfer then
                factsOf(frame.number).transfer = talk.transfer
            end
        end,
        midi = function(talk, frame, what)
            if not learnSysEx(talk, frame, what) then
                learnTestCommand(talk, frame, what)
            end
        end,
        start = function(talk, frame, what)
            talk.transfer = newTransfer(frame, what)
            factsOf(frame.number).transfer = talk.transfer
        end,
        data = function(talk, frame, what)
            local known = factsOf(frame.number)
            known.transfer = talk.transfer
            if talk.transfer then
                local resumes
                known.reports, resumes = talk.transfer:data(what)
                if resumes then
                    learnAnswer(talk, frame, "resend")
                end
            else
                known.reports = {{"no_start", "the start packet was not captured"}}
            end
        end,
        ["end"] = function(talk, frame, what)
            local known = factsOf(frame.number)
            learnRequest(talk, frame, "DE")
            known.transfer = talk.transfer
            if talk.transfer then
                known.reports = talk.transfer:finish(frame, what)
                known.summary = talk.transfer:summary(frame)
            else
                known.reports = {{"no_start", "the start packet was not captured"}}
            end
        end,
        resend = function(talk, frame, what)
            learnRequest(talk, frame, "resend")
            if talk.transfer then
                talk.transfer:resend(what.number)
                factsOf(frame.number).transfer = talk.transfer
            end
        end,
        refusal = function(talk, frame)
            if talk.transfer then
                talk.transfer:refuse()
                factsOf(frame.number).transfer = talk.transfer
            end
        end,
    }

    --- Takes a datagram that is dissected for the first time.
    function conversation.learn(talk, pinfo, what)
        local learner = learners[what.kind]
        learner(talk, {number = pinfo.number, time = pinfo.rel_ts}, what)
    end

    -- Showing

    local function seconds(time)
        local whole = math.floor(time)
        return NSTime.new(whole, math.floor((time - whole) * 1e9 + 0.5))
    end

    local function showTransfer(d, known, frame)
        local transfer = known.transfer
        if transfer.start ~= frame then
            d:addGenerated("transfer.start_in", transfer.start)
        end
        if transfer.finished and transfer.finished ~= frame then
            d:addGenerated("transfer.end_in", transfer.finished)
        end
        local summary = known.summary
        if summary then
            d:addGenerated("transfer.packets", summary.packets)
            d:addGenerated("transfer.resends", summary.resends)
            d:addGenerated("transfer.duration", seconds(summary.duration))
            if summary.rate then
                d:addGenerated("transfer.rate", summary.rate)
            end
            if summary.checksum then
                d:addGenerated("transfer.computed", summary.checksum)
            end
        end
    end

    local function showSysEx(d, known, text)
        d:addGenerated("sysex.events", known.sysExEvents)
        d:addGenerated("sysex.first_in", known.sysExFirstIn)
        if known.sysExMessage then
            d:addGathered("sysex.message", "SysEx", known.sysExMessage)
            d:addGenerated("sysex.text", known.sysExText)
            return "sysex " .. wire.hexText(known.sysExMessage)
        end
        local part = string.format("sysex event %d", known.sysExEvents)
        return text and text .. ", " .. part or part
    end

    local function showTestCommand(d, values)
        local texts = {}
        for i, name in ipairs({"testcommand.high", "testcommand.low", "testcommand.value"}) do
            if values[i] then
                d:addGenerated(name, values[i])
            end
            texts[i] = values[i] and string.format("%02x", values[i]) or "-"
        end
        return "test command " .. table.concat(texts, " ")
    end

    --- Shows the results that are kept for a frame. Returns the text, completed by them.
    function conversation.show(d, number, text)
        local known = facts[number]
        if not known then
            return text
        end
        if known.sysExEvents then
            text = showSysEx(d, known, text)
        end
        if known.testCommand then
            text = showTestCommand(d, known.testCommand)
        end
        if known.transfer then
            showTransfer(d, known, number)
        end
        if known.requestIn then
            d:addGenerated("request_in", known.requestIn)
            d:addGenerated("answer_time", seconds(known.answerTime))
        end
        if known.answerIn then
            d:addGenerated("answer_in", known.answerIn)
        end
        for _, report in ipairs(known.reports or {}) do
            d:report(report[1], report[2])
        end
        return text
    end

    return conversation
end
