#pragma once

#include "link/midipacket.h"

namespace zelta {

/// Number of a Non-Registered Parameter, which selects a setting of the engine.
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

// The MIDI controllers of a parameter change.
constexpr quint8 nrpnMsbController = 0x63;
constexpr quint8 nrpnLsbController = 0x62;
constexpr quint8 dataEntryLsbController = 0x26;
constexpr quint8 dataEntryMsbController = 0x06;

/// A control change on a 0-based MIDI channel. The status byte is 0xB0 + channel in eight bits; the channel
/// is not masked.
MIDI_DATA controlChange(quint8 controller, quint8 value, quint8 channel);

/// A parameter change of one data byte, three events: number MSB (controller 99), number LSB (98), value (6).
MIDI_PACKET nrpnPacket(NrpnNumber number, quint8 value, quint8 channel);

/// A parameter change of two data bytes, four events: number MSB, number LSB, LSB of the value (controller
/// 38), MSB of the value (6).
MIDI_PACKET nrpnPacket(NrpnNumber number, DataEntry value, quint8 channel);

/// A packet of a single event.
MIDI_PACKET singleEventPacket(const MIDI_DATA &event);

} // namespace zelta
