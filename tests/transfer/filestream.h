#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// One file as the sound engine sees it arrive, read from its datagrams without help of the sending side.
struct FileStream
{
    /// Reads all start, data and end packets that carry the content word; other datagrams are passed over.
    FileStream(const QVector<QByteArray> &datagrams, const QByteArray &content);

    QVector<QByteArray> starts;
    QVector<QByteArray> ends;
    QVector<quint32> numbers;   ///< of the data packets, as they came
    QVector<QByteArray> chunks; ///< of the data packets, as they came
    QByteArray lastData;        ///< the last data packet, whole
    QString fault;              ///< the first packet that is ill-formed, or out of place; empty if none is

    /// The file, every chunk at the place of its number; later ones replace earlier ones.
    QByteArray content(int chunkBytes) const;
    /// Sum of the big-endian words of all chunks that came, modulo 2^32.
    quint32 sum() const;
    /// True when the packet numbers are 0, 1, ... count - 1.
    bool isPlain(int count) const;
};
