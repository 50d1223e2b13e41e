#include "enginetext.h"

#include "kit.h"
#include "message.h"
#include "switches.h"
#include "wire.h"

#include <QStringList>

#include <algorithm>

namespace simulated {

namespace {

constexpr int eventSize = 8;
constexpr int compressorSize = 16;
constexpr int outputsSize = 38;
constexpr int outputCount = 18;

// Longer SysEx messages are shown without the bytes beyond. The module drops a message of this size.
constexpr int longestSysEx = 4 * 1024 * 1024;

constexpr quint16 strikeEvent = 0x9909;
constexpr quint16 pressureEvent = 0xA90A;
constexpr quint16 controllerEvent = 0xB90B;
constexpr quint16 programEvent = 0xC90C;

quint8 sevenBits(quint8 byte)
{
    return byte & 0x7F;
}

QString strikeText(quint8 note, quint8 velocity)
{
    const Zone *zone = zoneOfNote(note);
    if (zone == nullptr)
        return QStringLiteral("note %1 velocity %2, no pad").arg(note).arg(velocity);
    return QStringLiteral("pad %1 %2 zone %3 velocity %4")
        .arg(zone->pad)
        .arg(QLatin1String(zone->name))
        .arg(zone->zone)
        .arg(velocity);
}

QString pressureText(quint8 note, quint8 pressure)
{
    const Zone *zone = zoneOfNote(note);
    if (zone == nullptr || !zone->canBeChoked)
        return QStringLiteral("note %1 pressure %2, no pad").arg(note).arg(pressure);
    return QStringLiteral("pad %1 %2 pressure %3")
        .arg(zone->pad)
        .arg(QLatin1String(zone->name))
        .arg(pressure);
}

// Empty for an event that has no meaning of its own.
QString midiText(const QByteArray &datagram)
{
    const quint8 data2 = byteAt(datagram, 6);
    const quint8 data1 = byteAt(datagram, 7);
    switch (wordAt(datagram, 4)) {
    case strikeEvent: return strikeText(data1, data2);
    case pressureEvent: return pressureText(data1, data2);
    case controllerEvent:
        return QStringLiteral("controller %1 value %2").arg(sevenBits(data1)).arg(sevenBits(data2));
    case programEvent: return QStringLiteral("program change %1").arg(sevenBits(data1));
    default: return QString();
    }
}

QString flashText(quint16 high, quint16 low)
{
    // As the module calculates its two properties, in 32 bits.
    const quint32 samples = (low & 0x7FFFU) * 0x20000U;
    const quint32 total = ((quint32(high) << 16) | low) * 2U;
    return QStringLiteral("flash size %1, total %2").arg(samples).arg(total);
}

QString dataAcknowledgementText(quint16 low, quint16 word)
{
    const int code = word & 0xFF;
    const quint32 number = (quint32(word >> 8) << 16) | low;
    const QString codeText = QStringLiteral("code 0x%1").arg(code, 2, 16, QLatin1Char('0'));
    if (code == 0x00)
        return QStringLiteral("transfer packet %1 acknowledged").arg(number);
    if (code >= 0xE1 && code <= 0xE3)
        return QStringLiteral("transfer refused, memory full, ") + codeText;
    if (code >= 0xE0 && code <= 0xEF)
        return QStringLiteral("transfer refused, ") + codeText;
    const QString text = QStringLiteral("transfer resend from packet %1").arg(number);
    return code == 0xBE ? text : text + QStringLiteral(", unknown ") + codeText;
}

QString eventText(const QByteArray &datagram)
{
    const quint16 kind = wordAt(datagram, 0);
    const quint16 index = wordAt(datagram, 4);
    const quint16 data = wordAt(datagram, 6);
    switch (kind) {
    case Tag::Beat: return QStringLiteral("beat %1").arg(index);
    case Tag::Tempo: return QStringLiteral("tempo %1").arg(index);
    case Tag::Switch: return QStringLiteral("switch %1 %2").arg(switchText(index)).arg(data);
    case Tag::Pot: return QStringLiteral("pot %1 %2").arg(index).arg(QLatin1Char(data != 0 ? '+' : '-'));
    case Tag::FlashSize: return flashText(index, data);
    case Tag::TransferData: return dataAcknowledgementText(index, data);
    case Tag::TransferEnd:
        return QStringLiteral("transfer end acknowledged, status 0x%1").arg(data, 4, 16, QLatin1Char('0'));
    case Tag::HiHatRaw: return QStringLiteral("reply HL: %1 %2").arg(queryName(kind)).arg(index);
    default: break;
    }
    if (!queryName(kind).isEmpty())
        return QStringLiteral("reply %1: %2 %3.%4").arg(tagText(kind), queryName(kind)).arg(index).arg(data);
    return QStringLiteral("event %1 %2 %3").arg(tagText(kind)).arg(index).arg(data);
}

QString compressorText(const QByteArray &datagram)
{
    static const char *const sections[] = {"master", "monitor", "headphone", "pad"};
    QString text = QStringLiteral("compressor meters %1")
                       .arg(QLatin1String(sections[std::min<int>(wordAt(datagram, 2), 3)]));
    const char *const pairs[] = {" in", " reduction", " out"};
    int offset = 4;
    for (const char *pair : pairs) {
        text += QLatin1String(pair) +
                QStringLiteral(" %1 %2").arg(wordAt(datagram, offset)).arg(wordAt(datagram, offset + 2));
        offset += 4;
    }
    return text;
}

QString outputsText(const QByteArray &datagram)
{
    QString text = QStringLiteral("output meters");
    for (int i = 1; i <= outputCount; ++i)
        text += QLatin1Char(' ') + QString::number(wordAt(datagram, 2 * i));
    return text;
}

} // namespace

QString EngineText::take(const QByteArray &datagram)
{
    if (datagram.size() == eventSize && wordAt(datagram, 2) == Tag::Event)
        return wordAt(datagram, 0) == Tag::Midi ? takeMidi(datagram) : eventText(datagram);
    if (datagram.size() == compressorSize && wordAt(datagram, 0) == Tag::CompressorMeters)
        return compressorText(datagram);
    if (datagram.size() == outputsSize && wordAt(datagram, 0) == Tag::OutputMeters)
        return outputsText(datagram);
    return QStringLiteral("unreadable datagram: %1 bytes of no known form").arg(datagram.size());
}

QString EngineText::takeMidi(const QByteArray &datagram)
{
    QString text = midiText(datagram);
    if (gatherSysEx(datagram)) {
        if (m_sysExEnded) {
            text = QStringLiteral("sysex ") + hexText(m_sysEx);
            m_sysEx.clear();
            m_sysExEvents = 0;
            return text;
        }
        const QString part = QStringLiteral("sysex event %1").arg(m_sysExEvents);
        return text.isEmpty() ? part : text + QStringLiteral(", ") + part;
    }
    if (completesTestCommand(datagram)) {
        QStringList values;
        for (const int value : m_testCommand) {
            values.append(value < 0 ? QStringLiteral("-")
                                    : QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0')));
        }
        return QStringLiteral("test command ") + values.join(QLatin1Char(' '));
    }
    if (text.isEmpty())
        return QStringLiteral("MIDI event %1, which the module ignores").arg(hexText(datagram.mid(4)));
    return text;
}

bool EngineText::gatherSysEx(const QByteArray &datagram)
{
    const bool starts = byteAt(datagram, 4) == Midi::SysExStart;
    // The module looks for the end in the hexadecimal text, also across two bytes.
    m_sysExEnded = !starts && datagram.mid(4).toHex().contains("f7");
    if (!starts && !m_sysExEnded && m_sysExEvents == 0)
        return false;
    ++m_sysExEvents;
    if (m_sysEx.size() < longestSysEx) {
        m_sysEx.append(datagram.at(4));
        m_sysEx.append(datagram.at(7));
        m_sysEx.append(datagram.at(6));
    }
    if (m_sysExEnded) {
        // The message ends with F7, not with the padding of its last event.
        const int end = m_sysEx.indexOf(char(Midi::SysExEnd), std::max(0, m_sysEx.size() - 3));
        if (end >= 0)
            m_sysEx.truncate(end + 1);
    }
    return true;
}

bool EngineText::completesTestCommand(const QByteArray &datagram)
{
    static constexpr std::array<quint8, 3> parts{Midi::ParameterHigh, Midi::ParameterLow, Midi::Value};
    const auto *part = std::find(parts.begin(), parts.end(), byteAt(datagram, 7));
    if (wordAt(datagram, 4) != controllerEvent || part == parts.end())
        return false;
    m_testCommand[size_t(part - parts.begin())] = byteAt(datagram, 6);
    m_testCommandCount = std::min(m_testCommandCount + 1, 3);
    if (*part != Midi::Value || m_testCommandCount < 3)
        return false;
    m_testCommandCount = 0;
    return true;
}

} // namespace simulated
