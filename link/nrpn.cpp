#include "link/nrpn.h"

namespace zelta {

namespace {

constexpr quint8 controlChangeCodeIndex = 0x0B;
constexpr quint8 controlChangeStatus = 0xB0;

} // namespace

MIDI_DATA controlChange(quint8 controller, quint8 value, quint8 channel)
{
    return {controlChangeCodeIndex, quint8(controlChangeStatus + channel), controller, value};
}

MIDI_PACKET nrpnPacket(NrpnNumber number, quint8 value, quint8 channel)
{
    MIDI_PACKET packet(midiPacketHeader, 3);
    packet.setData(0, controlChange(nrpnMsbController, number.msb, channel));
    packet.setData(1, controlChange(nrpnLsbController, number.lsb, channel));
    packet.setData(2, controlChange(dataEntryMsbController, value, channel));
    return packet;
}

MIDI_PACKET nrpnPacket(NrpnNumber number, DataEntry value, quint8 channel)
{
    MIDI_PACKET packet(midiPacketHeader, 4);
    packet.setData(0, controlChange(nrpnMsbController, number.msb, channel));
    packet.setData(1, controlChange(nrpnLsbController, number.lsb, channel));
    packet.setData(2, controlChange(dataEntryLsbController, value.lsb, channel));
    packet.setData(3, controlChange(dataEntryMsbController, value.msb, channel));
    return packet;
}

MIDI_PACKET singleEventPacket(const MIDI_DATA &event)
{
    MIDI_PACKET packet(midiPacketHeader, 1);
    packet.setData(0, event);
    return packet;
}

} // namespace zelta
