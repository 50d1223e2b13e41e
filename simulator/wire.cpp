#include "wire.h"

#include <QtEndian>

namespace simulated {

namespace {

void appendWord(QByteArray *bytes, quint16 word)
{
    char big[2];
    qToBigEndian(word, big);
    bytes->append(big, 2);
}

} // namespace

quint8 byteAt(const QByteArray &bytes, int offset)
{
    return offset >= 0 && offset < bytes.size() ? quint8(bytes.at(offset)) : quint8(0);
}

quint16 wordAt(const QByteArray &bytes, int offset)
{
    return quint16((byteAt(bytes, offset) << 8) | byteAt(bytes, offset + 1));
}

quint32 longAt(const QByteArray &bytes, int offset)
{
    return (quint32(wordAt(bytes, offset)) << 16) | wordAt(bytes, offset + 2);
}

QString tagText(quint16 tag)
{
    const auto isLetter = [](int c) {
        return c > 0x20 && c < 0x7F;
    };
    if (isLetter(tag >> 8) && isLetter(tag & 0xFF))
        return QString(QLatin1Char(char(tag >> 8))) + QLatin1Char(char(tag & 0xFF));
    return QStringLiteral("0x%1").arg(tag, 4, 16, QLatin1Char('0'));
}

QString hexText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QByteArray eventDatagram(quint16 kind, quint16 index, quint16 data)
{
    QByteArray bytes;
    bytes.reserve(8);
    appendWord(&bytes, kind);
    appendWord(&bytes, Tag::Event);
    appendWord(&bytes, index);
    appendWord(&bytes, data);
    return bytes;
}

QByteArray midiEvent(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2)
{
    // The four bytes of an event are sent with each pair swapped.
    return eventDatagram(Tag::Midi, quint16((status << 8) | codeIndex), quint16((data2 << 8) | data1));
}

QByteArray compressorMeters(quint16 section, const CompressorLevels &levels)
{
    QByteArray bytes;
    appendWord(&bytes, Tag::CompressorMeters);
    appendWord(&bytes, section);
    for (quint16 level : levels)
        appendWord(&bytes, level);
    return bytes;
}

QByteArray outputMeters(const OutputLevels &levels)
{
    QByteArray bytes;
    appendWord(&bytes, Tag::OutputMeters);
    for (quint16 level : levels)
        appendWord(&bytes, level);
    return bytes;
}

QVector<QByteArray> sysExEvents(const QByteArray &message)
{
    // Code index 4 for an event that another one follows; 5, 6 or 7 for a last event of one, two or three
    // bytes.
    QVector<QByteArray> events;
    for (int i = 0; i < message.size(); i += 3) {
        const int left = message.size() - i;
        const quint8 codeIndex = left > 3 ? quint8(4) : quint8(4 + left);
        events.append(
            midiEvent(codeIndex, byteAt(message, i), byteAt(message, i + 1), byteAt(message, i + 2)));
    }
    return events;
}

} // namespace simulated
