#pragma once

#include "link/nrpn.h"

namespace zelta {

// Conversions from settings to data bytes. Every input gives a defined result, the same on every processor.

/// 1 for on, 0 for off.
constexpr quint8 onOff(bool on)
{
    return on ? 1 : 0;
}

/// The value, or 127 when its bit 7 is set.
constexpr quint8 limitedToSevenBits(quint8 value)
{
    return value < 0x80 ? value : 0x7F;
}

/// Balance and panning send position 1 as 0 and every other position unchanged.
constexpr quint8 positionWithoutOne(quint8 position)
{
    return position == 1 ? 0 : position;
}

/// Semitones plus 64, in eight bits. -64...63 gives 0...127; values outside this range are not limited.
constexpr quint8 coarseTuning(signed char semitones)
{
    return quint8(semitones + 64);
}

/// Splits a number into its low seven bits (lsb) and the next eight bits (msb). Higher bits are lost.
constexpr DataEntry fourteenBits(quint32 value)
{
    return {quint8(value >> 7), quint8(value & 0x7F)};
}

/// Tempo in beats per minute as a 14-bit number, (tempo - 20) * 64: the upper byte counts steps of 2 bpm from
/// 20, bit 6 of the lower byte adds 1 bpm. Tempos below 20 wrap in 16 bits before they are encoded.
constexpr DataEntry tempoEntry(quint16 beatsPerMinute)
{
    const auto fromTwenty = quint16(beatsPerMinute - 20);
    return {quint8(fromTwenty >> 1), quint8((fromTwenty & 1) << 6)};
}

/// Gain in dB, limited to -15...15 and mapped to 0...127. Rounded down: 0 dB gives 63.
quint8 gainValue(int decibels);

/// Q, limited to 0.1...8.0 and mapped to 0...127. Rounded down; NaN gives 0.
quint8 qValue(double q);

/// Parameter of the multi-effect.
/// Type 0: the value is limited to the range of min and max, in either order, and mapped to 0...127, rounded
/// down. An empty range or a NaN gives 0.
/// Other types: the low eight bits of the value's integer part. Infinity and NaN give 0.
quint8 effectParameter(double value, double min, double max, int type);

} // namespace zelta
