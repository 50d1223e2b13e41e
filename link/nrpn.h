#pragma once

#include "link/midipacket.h"

namespace zelta {

/// Number of a Non-Registered Parameter: the device's name for one of its settings.
struct NrpnNumber
{
    quint8 msb;
    quint8 lsb;
};

/// A parameter value of two data bytes.
struct DataEntry
{
    quint8 msb;
    quint8 lsb;
};

// The MIDI controllers that make up a parameter change.
constexpr quint8 nrpnMsbController = 0x63;
constexpr quint8 nrpnLsbController = 0x62;
constexpr quint8 dataEntryLsbController = 0x26;
constexpr quint8 dataEntryMsbController = 0x06;

/// A control change on a 0-based MIDI channel. The status byte is computed in eight bits and the channel is
/// not masked, so any channel value gives the byte that the device has always been sent.
MIDI_DATA controlChange(quint8 controller, quint8 value, quint8 channel);

/// The usual parameter change, three events: number MSB (controller 99), number LSB (98), value (6).
MIDI_PACKET nrpnPacket(NrpnNumber number, quint8 value, quint8 channel);

/// A parameter change of two data bytes, four events: the LSB of the value (controller 38) goes before its
/// MSB (6), because the device takes the value over when controller 6 arrives.
MIDI_PACKET nrpnPacket(NrpnNumber number, DataEntry value, quint8 channel);

/// A packet of a single event.
MIDI_PACKET singleEventPacket(const MIDI_DATA &event);

} // namespace zelta
