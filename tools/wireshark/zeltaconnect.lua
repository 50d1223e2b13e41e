-- Wireshark dissector for the datagrams between a drum module's touch screen and its sound engine.
--
-- docs/dissector.md says how to load it. The parts of the dissector and the table of parameters are in the folder
-- zeltaconnect/ beside this file; the build writes the table.

local DEFAULT_PORT = 19797

local folder = debug.getinfo(1, "S").source:match("^@(.*[/\\])") or ""

local function part(name)
    local chunk, problem = loadfile(folder .. "zeltaconnect/" .. name .. ".lua")
    if not chunk then
        error("the dissector is not complete: " .. problem, 0)
    end
    return chunk()
end

local fields = part("fields")
local wire = part("wire")
local parameters = part("parameters")
local module = part("module")(wire, parameters)
local engine = part("engine")(wire, parameters, module.queries, fields)
local conversation = part("conversation")(wire, part("transfer"))

local zelta = Proto("zelta", "ZeltaConnect")
local protoFields = fields.create()
local experts = fields.createExperts()
zelta.fields = protoFields
zelta.experts = experts
zelta.prefs.port = Pref.uint("UDP port", DEFAULT_PORT, "The port of the sound engine")

-- The module sends to the engine's port. If the ports do not show the direction, the form of the datagram does.
local function isToEngine(d, pinfo)
    local source, destination, port = pinfo.src_port, pinfo.dst_port, zelta.prefs.port
    if source ~= destination and (source == port or destination == port) then
        return destination == port
    end
    return not engine.hasForm(d)
end

-- Returns the text, and a description of the datagram for conversation.lua.
local function read(d, toEngine)
    local reader = toEngine and module.read or engine.read
    local complete, text, what = pcall(reader, d)
    if complete then
        return text, what
    elseif text ~= wire.cutShort then
        error(text, 0)
    end
    local name = d.captured < 2 and "datagram" or wire.tagText(d:tag(0))
    return string.format("%s of %d bytes, %d captured", name, d.size, d.captured)
end

function zelta.dissector(tvb, pinfo, tree)
    local root = tree:add(zelta, tvb())
    local d = wire.datagram(tvb, root, protoFields, experts)
    local toEngine = isToEngine(d, pinfo)
    d:addGenerated("direction", toEngine and "to the engine" or "from the engine")
    local text, what = read(d, toEngine)

    -- An ICMP message quotes a datagram that was dissected before.
    if not pinfo.in_error_pkt then
        if what and not pinfo.visited then
            conversation.learn(conversation.of(pinfo, toEngine), pinfo, what)
        end
        text = conversation.show(d, pinfo.number, text)
    end
    text = text or string.format("MIDI event %s, which the module ignores", wire.hexText(d:text(4, 4)))
    if d.captured < d.size then
        d:report("cut_short", string.format("%d of %d bytes are in the capture", d.captured, d.size))
    end

    d:addGenerated("text", text)
    root:append_text(": " .. text)
    pinfo.cols.protocol:set("ZeltaConnect")
    pinfo.cols.info:set(text)
end

local udpPorts = DissectorTable.get("udp.port")
local registeredPort = DEFAULT_PORT
udpPorts:add(registeredPort, zelta)

function zelta.prefs_changed()
    if registeredPort ~= zelta.prefs.port then
        udpPorts:remove(registeredPort, zelta)
        registeredPort = zelta.prefs.port
        udpPorts:add(registeredPort, zelta)
    end
end

function zelta.init()
    conversation.reset()
end
