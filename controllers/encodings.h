#pragma once

#include "link/nrpn.h"

namespace zelta {

// How settings become data bytes. Every input has a defined result, the same on every processor.

/// 1 for on, 0 for off.
constexpr quint8 onOff(bool on)
{
    return on ? 1 : 0;
}

/// 127 when bit 7 is set, else the value.
constexpr quint8 limitedToSevenBits(quint8 value)
{
    return value < 0x80 ? value : 0x7F;
}

/// Balance and panning know no position 1: the device wants 0 in its place.
constexpr quint8 positionWithoutOne(quint8 position)
{
    return position == 1 ? 0 : position;
}

/// Semitones around 64, in eight bits without limit.
constexpr quint8 coarseTuning(signed char semitones)
{
    return quint8(semitones + 64);
}

/// The low seven bits and what lies above them; the upper byte is not masked, bits beyond it are lost.
constexpr DataEntry fourteenBits(quint32 value)
{
    return {quint8(value >> 7), quint8(value & 0x7F)};
}

/// Beats per minute as the device counts them: from 20, in halves of the upper byte, the odd bit at the top
/// of the lower byte. Below 20 the count wraps in sixteen bits.
constexpr DataEntry tempoEntry(quint16 beatsPerMinute)
{
    const auto fromTwenty = quint16(beatsPerMinute - 20);
    return {quint8(fromTwenty >> 1), quint8((fromTwenty & 1) << 6)};
}

/// Gain in dB, limited to -15...15, onto 0...127; rounded down, so that 0 dB is 63.
quint8 gainValue(int decibels);

/// Q, limited to 0.1...8.0, onto 0...127; rounded down. Not a number gives 0.
quint8 qValue(double q);

/// A parameter of the multi-effect. Type 0: the value, limited to the range between min and max in either
/// order, onto 0...127, rounded down; an empty range or anything that is not a number gives 0. Any other
/// type: the value's integer part, its low eight bits; 0 when it is infinite or not a number.
quint8 effectParameter(double value, double min, double max, int type);

} // namespace zelta
