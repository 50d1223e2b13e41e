#pragma once

#include "link/tag.h"

#include <QByteArray>

/// One USB-MIDI event as a MIDI_PACKET contains it.
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
constexpr quint16 midiPacketHeader = tag('I', 'M');
/// Header word of the power-off packet.
constexpr quint16 powerPacketHeader = tag('P', 'W');

} // namespace zelta

/// USB-MIDI events for the sound engine: header word and event count, both big-endian, then the events. A
/// packet is sent as one datagram. A value type; can be used in any thread.
class MIDI_PACKET
{
public:
    /// Creates a packet of count events, all bytes zero. count is 0 to 65535.
    MIDI_PACKET(unsigned short header, unsigned short count);

    /// Writes an event at its 0-based index. An index at or beyond the count makes the packet longer and does
    /// not change the count in the header. A negative index is ignored.
    void setData(int index, const MIDI_DATA &event);

    /// Writes the packet as hex text to the debug log.
    void dumpData() const;

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};
