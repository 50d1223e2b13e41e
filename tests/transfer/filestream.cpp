#include "filestream.h"

namespace {

quint32 number(const QByteArray &bytes, int offset, int width)
{
    return bytes.mid(offset, width).toHex().toUInt(nullptr, 16);
}

} // namespace

FileStream::FileStream(const QVector<QByteArray> &datagrams, const QByteArray &tag)
{
    for (const QByteArray &datagram : datagrams) {
        if (datagram.mid(2, 2) != tag)
            continue;
        const QByteArray kind = datagram.left(2);
        if (kind == "DS") {
            starts.append(datagram);
        } else if (kind == "DC") {
            const QByteArray chunk = datagram.mid(10);
            if (datagram.size() < 10 || chunk.size() % 2 != 0 ||
                number(datagram, 8, 2) * 2 != quint32(chunk.size()))
                fault = QStringLiteral("length: ") + QString::fromLatin1(datagram.left(10).toHex());
            if (starts.isEmpty() || !ends.isEmpty())
                fault = QStringLiteral("data outside of start and end");
            numbers.append(number(datagram, 4, 4));
            chunks.append(chunk);
            lastData = datagram;
        } else if (kind == "DE") {
            if (datagram.size() != 8 || starts.isEmpty())
                fault = QStringLiteral("end: ") + QString::fromLatin1(datagram.toHex());
            ends.append(datagram);
        }
    }
}

QByteArray FileStream::content(int chunkBytes) const
{
    QByteArray bytes;
    for (int i = 0; i < numbers.size(); ++i) {
        const int offset = int(numbers.at(i)) * chunkBytes;
        bytes.replace(offset, qMin(chunks.at(i).size(), qMax(0, bytes.size() - offset)), chunks.at(i));
    }
    return bytes;
}

quint32 FileStream::sum() const
{
    quint32 total = 0;
    for (const QByteArray &chunk : chunks) {
        for (int i = 0; i + 1 < chunk.size(); i += 2)
            total += number(chunk, i, 2);
    }
    return total;
}

bool FileStream::isPlain(int count) const
{
    if (numbers.size() != count)
        return false;
    for (int i = 0; i < count; ++i) {
        if (numbers.at(i) != quint32(i))
            return false;
    }
    return true;
}
