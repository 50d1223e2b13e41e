#include "link/midipacket.h"

#include "link/logging.h"

#include <QtEndian>

#include <cstring>

namespace {

constexpr int eventSize = int(sizeof(MIDI_DATA));
constexpr int headerSize = 4;
constexpr int countOffset = 2;

} // namespace

MIDI_PACKET::MIDI_PACKET(unsigned short header, unsigned short count)
    : m_bytes(headerSize + count * eventSize, '\0')
{
    qToBigEndian<quint16>(header, m_bytes.data());
    qToBigEndian<quint16>(count, m_bytes.data() + countOffset);
}

void MIDI_PACKET::setData(int index, const MIDI_DATA &event)
{
    if (index < 0)
        return;
    const int offset = headerSize + index * eventSize;
    const int end = offset + eventSize;
    if (m_bytes.size() < end)
        m_bytes.append(end - m_bytes.size(), '\0');
    std::memcpy(m_bytes.data() + offset, &event, sizeof(event));
}

void MIDI_PACKET::dumpData() const
{
    qCDebug(lcLink) << "Midi Data:" << m_bytes.toHex();
}
