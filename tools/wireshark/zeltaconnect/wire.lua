-- The bytes of a datagram: reading them, naming them, showing them in the packet tree.
--
-- Wireshark runs every Lua file of a plug-in folder, so loading this one only returns a table.

local wire = {}

--- Raised when a required byte is not in the capture. zeltaconnect.lua catches only this error.
wire.cutShort = {}

local Datagram = {}
Datagram.__index = Datagram

--- The payload of one UDP datagram. Its size is the original length; a capture may contain fewer bytes.
function wire.datagram(tvb, tree, fields, experts)
    return setmetatable({
        tvb = tvb,
        tree = tree,
        fields = fields,
        experts = experts,
        size = tvb:reported_len(),
        captured = tvb:captured_len(),
        bytes = tvb:raw(),
        -- Items without specific bytes refer to all of them.
        whole = tvb(),
    }, Datagram)
end

-- Reading. Offsets count from 0.

function Datagram:byte(offset)
    return self.bytes:byte(offset + 1) or error(wire.cutShort, 0)
end

function Datagram:word(offset)
    return self:byte(offset) * 0x100 + self:byte(offset + 1)
end

function Datagram:long(offset)
    return self:word(offset) * 0x10000 + self:word(offset + 2)
end

--- A number of bytes from an offset on. Without a length, all bytes up to the end of the datagram.
function Datagram:text(offset, length)
    length = length or self.size - offset
    if offset + length > self.captured then
        error(wire.cutShort, 0)
    end
    return self.bytes:sub(offset + 1, offset + length)
end

--- Two bytes as a tag: "IM".
function Datagram:tag(offset)
    return self:text(offset, 2)
end

-- Showing. Each returns the tree item.

--- A field in the bytes from an offset on. Bytes that are not in the capture are left out.
function Datagram:add(name, offset, length, value, parent)
    local range = self.tvb(offset, math.min(length, self.captured - offset))
    return (parent or self.tree):add(self.fields[name], range, value)
end

--- The same for a field that shows the bytes unchanged.
function Datagram:addBytes(name, offset, length, parent)
    local range = self.tvb(offset, math.min(length, self.captured - offset))
    return (parent or self.tree):add(self.fields[name], range)
end

--- A field whose value does not depend only on bytes of this datagram.
function Datagram:addGenerated(name, value, parent)
    local item = (parent or self.tree):add(self.fields[name], self.whole, value)
    item:set_generated()
    return item
end

--- Bytes that were gathered from several places. Wireshark shows them in a separate tab.
function Datagram:addGathered(name, title, bytes)
    local item = self.tree:add(self.fields[name], ByteArray.new(bytes, true):tvb(title)())
    item:set_generated()
    return item
end

--- Reports something with a named expert information.
function Datagram:report(expert, text)
    self.tree:add_proto_expert_info(self.experts[expert], text)
end

--- Reports a datagram that breaks the rules of the protocol but can be read.
function Datagram:violation(format, ...)
    self:report("violation", string.format(format, ...))
end

--- Reports a datagram that cannot be read. Returns the text of the datagram.
function Datagram:unreadable(format, ...)
    local reason = string.format(format, ...)
    self:report("malformed", reason)
    return "unreadable datagram: " .. reason
end

-- Texts.

--- "SB" for two printable letters, "0x0102" for any other tag.
function wire.tagText(tag)
    if tag:find("^[\x21-\x7E][\x21-\x7E]$") then
        return tag
    end
    return string.format("0x%02x%02x", tag:byte(1, 2))
end

--- "F0 01 F7"
function wire.hexText(bytes)
    return (bytes:gsub(".", function(byte) return string.format("%02X ", byte:byte()) end):gsub(" $", ""))
end

local sequences = {
    -- First byte from, to, further bytes, range of the second byte.
    {0xC2, 0xDF, 1, 0x80, 0xBF},
    {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
}

-- The length of the UTF-8 character at a position, or nil when none begins there.
local function characterLength(bytes, position)
    local first, second = bytes:byte(position, position + 1)
    if first < 0x80 then
        return 1
    end
    for _, row in ipairs(sequences) do
        if first >= row[1] and first <= row[2] then
            if not second or second < row[4] or second > row[5] then
                return nil
            end
            for i = 2, row[3] do
                local byte = bytes:byte(position + i)
                if not byte or byte < 0x80 or byte > 0xBF then
                    return nil
                end
            end
            return row[3] + 1
        end
    end
    return nil
end

--- A name as text in quotes. Bytes that are not UTF-8 are replaced, and so are control characters.
function wire.quoted(name)
    local parts = {}
    local position = 1
    while position <= #name do
        local length = characterLength(name, position)
        local character = name:sub(position, position + (length or 1) - 1)
        if not length then
            character = "\xEF\xBF\xBD"
        elseif character:find("^[\0-\x1F\x7F]$") or character:find("^\xC2[\x80-\x9F]$") then
            character = "?"
        elseif length == 4 then
            -- The simulated engine replaces each half of the surrogate pair.
            character = "??"
        end
        parts[#parts + 1] = character
        position = position + (length or 1)
    end
    return '"' .. table.concat(parts) .. '"'
end

return wire
