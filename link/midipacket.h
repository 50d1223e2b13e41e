#pragma once

#include "link/eventkind.h"

#include <QByteArray>

/// One USB-MIDI event as it lies in a MIDI_PACKET.
struct MIDI_DATA
{
    quint8 codeIndex; ///< cable number (high nibble) and code index number (low nibble)
    quint8 status;    ///< MIDI status byte
    quint8 data1;
    quint8 data2;
};
static_assert(sizeof(MIDI_DATA) == 4, "an event is copied byte for byte into the packet");

namespace zelta {

/// Header word of a packet that carries MIDI events.
constexpr quint16 midiPacketHeader = midiEvent;
/// Header word of the power-off packet.
constexpr quint16 powerPacketHeader = powerSwitch;

} // namespace zelta

/// A run of USB-MIDI events for the sound engine: header word and event count, both big-endian, then the
/// events. It is sent as one datagram. A plain value; any thread.
class MIDI_PACKET
{
public:
    /// Makes room for count events, all zero, behind a header of four bytes.
    MIDI_PACKET(unsigned short header, unsigned short count);

    /// Writes an event at its 0-based position. A position at or beyond the count makes the packet longer
    /// and leaves the count in the header as it is; a negative one is ignored.
    void setData(int index, const MIDI_DATA &event);

    /// Writes the packet as hex text to the debug log.
    void dumpData() const;

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};
