#include "midiparser.h"

namespace simulated {

namespace {

constexpr quint8 firstStatus = 0x80;
constexpr quint8 firstSystemStatus = 0xF0;
constexpr quint8 firstRealTimeStatus = 0xF8;

MidiMessage::Kind kindOf(quint8 status)
{
    switch (status & 0xF0) {
    case 0x80: return MidiMessage::Kind::NoteOff;
    case 0x90: return MidiMessage::Kind::NoteOn;
    case 0xA0: return MidiMessage::Kind::PolyPressure;
    case 0xB0: return MidiMessage::Kind::Controller;
    case 0xC0: return MidiMessage::Kind::Program;
    case 0xD0: return MidiMessage::Kind::ChannelPressure;
    default: return MidiMessage::Kind::PitchBend;
    }
}

int dataBytesOf(MidiMessage::Kind kind)
{
    return kind == MidiMessage::Kind::Program || kind == MidiMessage::Kind::ChannelPressure ? 1 : 2;
}

} // namespace

QVector<MidiMessage> MidiParser::take(const QByteArray &bytes)
{
    QVector<MidiMessage> messages;
    for (const char c : bytes) {
        const quint8 byte = quint8(c);
        if (byte >= firstStatus) {
            takeStatus(byte);
            continue;
        }
        if (m_status == 0)
            continue;
        m_data.at(size_t(m_count++)) = byte;
        const MidiMessage::Kind kind = kindOf(m_status);
        if (m_count < dataBytesOf(kind))
            continue;
        messages.append({kind, m_status & 0x0F, m_data[0], m_count > 1 ? m_data[1] : quint8(0)});
        m_count = 0;
    }
    return messages;
}

void MidiParser::takeStatus(quint8 status)
{
    // A real-time byte may stand within another message and does not change it.
    if (status >= firstRealTimeStatus)
        return;
    // The data of SysEx and of other system messages is skipped up to the next status.
    m_status = status < firstSystemStatus ? status : quint8(0);
    m_count = 0;
}

void MidiParser::reset()
{
    m_status = 0;
    m_count = 0;
}

} // namespace simulated
