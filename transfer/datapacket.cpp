#include "transfer/datapacket.h"

#include <QtEndian>

namespace {

constexpr int numberOffset = 4;
constexpr int checksumOffset = 4;
constexpr int lengthOffset = 8;
constexpr int dataHeaderLength = 10;
constexpr int endLength = 8;

template<typename Number>
void appendBigEndian(QByteArray &bytes, Number number)
{
    const int offset = bytes.size();
    bytes.resize(offset + int(sizeof(Number)));
    qToBigEndian(number, bytes.data() + offset);
}

} // namespace

DATA_PACKET::DATA_PACKET(unsigned short kind, unsigned short tag)
{
    appendBigEndian(m_bytes, quint16(kind));
    appendBigEndian(m_bytes, quint16(tag));
}

void DATA_PACKET::setStart(unsigned int size)
{
    appendBigEndian(m_bytes, quint32(size));
}

void DATA_PACKET::setSlot(unsigned int slot)
{
    setSoundBankId(slot);
}

void DATA_PACKET::setSoundBankId(unsigned int id)
{
    appendBigEndian(m_bytes, quint16(id & 0xFFFF));
}

void DATA_PACKET::setFileName(const QString &name)
{
    m_bytes.append(name.toUtf8());
    m_bytes.append('\0');
}

void DATA_PACKET::setData(unsigned int number, const QByteArray &chunk)
{
    m_bytes.reserve(dataHeaderLength + chunk.size());
    m_bytes.resize(dataHeaderLength);
    qToBigEndian(quint32(number), m_bytes.data() + numberOffset);
    qToBigEndian(quint16(chunk.size() / 2), m_bytes.data() + lengthOffset);
    m_bytes.append(chunk);
}

void DATA_PACKET::setEnd(unsigned int checksum)
{
    m_bytes.resize(endLength);
    qToBigEndian(quint32(checksum), m_bytes.data() + checksumOffset);
}

namespace zelta {

quint32 chunkChecksum(const QByteArray &chunk)
{
    quint32 sum = 0;
    const int wholeWords = chunk.size() - chunk.size() % 2;
    for (int i = 0; i < wholeWords; i += 2)
        sum += qFromBigEndian<quint16>(chunk.constData() + i);
    if (wholeWords < chunk.size())
        sum += quint32(quint8(chunk.back())) << 8;
    return sum;
}

} // namespace zelta
