#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// One file as the sound engine receives it, decoded from its datagrams without code of the sending side.
struct FileStream
{
    /// Reads all start, data and end packets with that content tag; other datagrams are skipped.
    FileStream(const QVector<QByteArray> &datagrams, const QByteArray &tag);

    QVector<QByteArray> starts;
    QVector<QByteArray> ends;
    QVector<quint32> numbers;   ///< of the data packets, in the order of arrival
    QVector<QByteArray> chunks; ///< of the data packets, in the order of arrival
    QByteArray lastData;        ///< the last data packet, whole
    QString fault;              ///< a packet that is malformed or out of order; empty if there is none

    /// The file with each chunk at the position of its number; a later chunk replaces an earlier one.
    QByteArray content(int chunkBytes) const;
    /// Sum of the big-endian words of all received chunks, modulo 2^32.
    quint32 sum() const;
    /// True when the packet numbers are 0, 1, ... count - 1.
    bool isPlain(int count) const;
};
