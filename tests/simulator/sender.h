// The module's side of a file transfer, packet by packet.
#pragma once

#include "peer.h"

#include "support/noise.h"

#include <QtEndian>

using testsupport::noise;

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

    // Sends packet index and adds it to the checksum.
    bool data(int index)
    {
        count(index);
        return m_peer->send(packet(index));
    }

    // Adds packet index to the checksum without sending it, as if the network had lost it.
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

    // Sends the whole file and follows each resend request after lag more packets. Returns everything else
    // that the engine sent.
    QList<QByteArray> sendObeying(int lag)
    {
        QList<QByteArray> others;
        int goBackTo = -1;
        int goBackIn = 0;
        start();
        for (int i = 0; i < count(); ++i) {
            takeRequests(&others, &goBackTo, &goBackIn, lag);
            if (goBackTo >= 0 && goBackIn-- == 0) {
                i = goBackTo;
                goBackTo = -1;
            }
            data(i);
            takeRequests(&others, &goBackTo, &goBackIn, lag);
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

    void takeRequests(QList<QByteArray> *others, int *goBackTo, int *goBackIn, int lag)
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
