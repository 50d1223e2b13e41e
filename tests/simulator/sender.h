// The module's end of a file transfer, packet by packet.
#pragma once

#include "peer.h"

#include <QtEndian>

class Sender
{
public:
    Sender(Peer *peer, const char *content, const QByteArray &file)
        : m_peer(peer)
        , m_content(content)
        , m_file(file)
        , m_chunk(m_content == "SB" ? 1024 : 512)
    {}

    int count() const { return (m_file.size() + m_chunk - 1) / m_chunk; }
    quint32 sum() const { return m_sum; }

    bool start() { return m_peer->send("DS" + m_content + number(quint32(m_file.size()))); }
    bool start(quint16 slot, const QByteArray &nameWithZero)
    {
        return m_peer->send("DS" + m_content + number(quint32(m_file.size())) + word(slot) + nameWithZero);
    }

    QByteArray packet(int index) const
    {
        QByteArray chunk = m_file.mid(index * m_chunk, m_chunk);
        if (chunk.size() % 2 != 0)
            chunk.append('\0');
        return "DC" + m_content + number(quint32(index)) + word(quint16(chunk.size() / 2)) + chunk;
    }

    // Sends packet index and counts it, lost or not, as the module does.
    bool data(int index)
    {
        count(index);
        return m_peer->send(packet(index));
    }

    // Counts packet index without sending it: the network lost it.
    void count(int index)
    {
        const QByteArray chunk = packet(index).mid(10);
        for (int i = 0; i + 1 < chunk.size(); i += 2)
            m_sum += quint32(quint8(chunk.at(i))) * 256 + quint8(chunk.at(i + 1));
    }

    bool dataFromTo(int first, int last)
    {
        for (int i = first; i <= last; ++i) {
            if (!data(i))
                return false;
        }
        return true;
    }

    bool dataAtOnce(int first, int last)
    {
        QList<QByteArray> packets;
        for (int i = first; i <= last; ++i) {
            count(i);
            packets.append(packet(i));
        }
        return m_peer->sendAtOnce(packets);
    }

    bool end() { return end(m_content == "FW" || m_content == "BF" ? 0 : m_sum); }
    bool end(quint32 sum) { return m_peer->send("DE" + m_content + number(sum)); }

    // Sends the whole file and goes back where the engine asks for it, lag packets late. Returns what the
    // engine said besides.
    QList<QByteArray> sendObeying(int lag)
    {
        QList<QByteArray> others;
        int goBackTo = -1;
        int goBackIn = 0;
        start();
        for (int i = 0; i < count(); ++i) {
            look(&others, &goBackTo, &goBackIn, lag);
            if (goBackTo >= 0 && goBackIn-- == 0) {
                i = goBackTo;
                goBackTo = -1;
            }
            data(i);
            look(&others, &goBackTo, &goBackIn, lag);
            if (i == count() - 1 && goBackTo >= 0) {
                i = goBackTo - 1;
                goBackTo = -1;
            }
        }
        end();
        return others + m_peer->take();
    }

private:
    static QByteArray word(quint16 value)
    {
        char big[2];
        qToBigEndian(value, big);
        return QByteArray(big, 2);
    }
    static QByteArray number(quint32 value)
    {
        char big[4];
        qToBigEndian(value, big);
        return QByteArray(big, 4);
    }

    void look(QList<QByteArray> *others, int *goBackTo, int *goBackIn, int lag)
    {
        const auto taken = m_peer->take();
        for (const QByteArray &datagram : taken) {
            const bool isResend =
                datagram.startsWith("DCAC") && datagram.size() == 8 && datagram.at(7) != '\0';
            if (!isResend) {
                others->append(datagram);
                continue;
            }
            *goBackTo = qFromBigEndian<quint16>(datagram.constData() + 4);
            *goBackIn = lag;
        }
    }

    Peer *m_peer;
    QByteArray m_content;
    QByteArray m_file;
    int m_chunk;
    quint32 m_sum = 0;
};

// Bytes that differ everywhere and from chunk to chunk.
inline QByteArray someFile(int size)
{
    QByteArray file(size, Qt::Uninitialized);
    quint32 state = 12345;
    for (int i = 0; i < size; ++i) {
        state = state * 1664525 + 1013904223;
        file[i] = char(state >> 24);
    }
    return file;
}
