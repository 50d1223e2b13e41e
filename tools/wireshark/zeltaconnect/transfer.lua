-- The transfer of one file to the engine: packet numbers, checksum and throughput.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns a function.

local SOUND_BANK_CHUNK = 1024
local OTHER_CHUNK = 512

-- Contents whose end packet carries 0.
local withoutChecksum = {FW = true, BF = true}

local Transfer = {}
Transfer.__index = Transfer

-- The sum of a padded chunk's big-endian words.
local function chunkSum(chunk)
    local high, low = 0, 0
    for position = 1, #chunk - 1, 2 do
        local first, second = chunk:byte(position, position + 1)
        high = high + first
        low = low + second
    end
    return high * 0x100 + low
end

--- Adds a data packet. Returns the reports about it, or nil, and whether the sender resumes where it was asked to.
function Transfer:data(packet)
    local reports = {}
    local function report(expert, format, ...)
        reports[#reports + 1] = {expert, string.format(format, ...)}
    end
    local number = packet.number
    if packet.content ~= self.content then
        report("violation", "%s data packet within a transfer of %s", packet.content, self.content)
        return reports
    end
    self.packets = self.packets + 1
    local resumes = number ~= self.next and number == self.awaited
    if resumes then
        self.awaited = nil
    elseif number < self.next then
        report("repeat", "packet %d is sent again, packet %d is next", number, self.next)
    elseif number > self.next then
        report("gap", "%d packet(s) are missing before packet %d", number - self.next, number)
        self.isComplete = false
    end
    self.next = number + 1

    -- A sender that has nothing left to read where it should resume sends one empty packet and gives up.
    if packet.length > 0 then
        local left = self.size - number * self.chunkSize
        local expected = math.min(self.chunkSize, left + left % 2)
        if left <= 0 then
            report("violation", "packet %d is past the end of the file", number)
        elseif packet.length ~= expected then
            report("violation", "packet %d holds %d bytes instead of %d", number, packet.length, expected)
        end
    end
    if packet.chunk then
        self.sum = (self.sum + chunkSum(packet.chunk)) % 0x100000000
    else
        self.isComplete = false
    end
    self.bytes = self.bytes + packet.length
    return reports[1] and reports, resumes
end

--- The engine asks for the packets from a number on.
function Transfer:resend(number)
    self.awaited = number
    self.resends = self.resends + 1
end

--- The engine refuses further data.
function Transfer:refuse()
    self.isRefused = true
end

--- The end packet arrived. Returns the reports about it, or nil.
function Transfer:finish(frame, packet)
    if packet.content ~= self.content then
        return {{"violation", string.format("%s end packet within a transfer of %s", packet.content, self.content)}}
    end
    self.finished = frame.number
    local missing = math.ceil(self.size / self.chunkSize) - self.next
    if missing > 0 then
        -- Whether all packets up to a refusal were captured is not known.
        self.isComplete = false
        if not self.isRefused then
            return {{"gap", string.format("%d packet(s) are missing before the end", missing)}}
        end
    end
    local text
    if withoutChecksum[self.content] then
        if packet.checksum ~= 0 then
            text = string.format("checksum 0x%08x, but a transfer of %s has none", packet.checksum, self.content)
        end
    elseif self.isComplete and packet.checksum ~= self.sum then
        text = string.format("checksum 0x%08x, the packets seen give 0x%08x", packet.checksum, self.sum)
    end
    return text and {{"checksum", text}}
end

--- The figures of the transfer up to a frame. The checksum is left out when packets are missing from the capture.
function Transfer:summary(frame)
    local duration = frame.time - self.startTime
    return {
        packets = self.packets,
        resends = self.resends,
        duration = duration,
        rate = duration > 0 and self.bytes / duration or nil,
        checksum = not withoutChecksum[self.content] and self.isComplete and self.sum or nil,
    }
end

--- The transfer that a start packet begins.
return function(frame, packet)
    return setmetatable({
        content = packet.content,
        size = packet.size,
        chunkSize = packet.content == "SB" and SOUND_BANK_CHUNK or OTHER_CHUNK,
        start = frame.number,
        startTime = frame.time,
        next = 0,
        sum = 0,
        isComplete = true,
        packets = 0,
        resends = 0,
        bytes = 0,
    }, Transfer)
end
