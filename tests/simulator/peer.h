// A module made of one raw socket, opposite a simulated engine in the same thread.
#pragma once

#include "simulator/soundengine.h"

#include <QDeadlineTimer>
#include <QTest>
#include <QUdpSocket>

inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

class Peer
{
public:
    explicit Peer(SoundEngine *engine)
        : m_engine(engine)
    {
        m_socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
        QObject::connect(&m_socket, &QUdpSocket::readyRead, &m_socket, [this] {
            while (m_socket.hasPendingDatagrams()) {
                QByteArray bytes(65536, '\0');
                const qint64 size = m_socket.readDatagram(bytes.data(), bytes.size());
                received.append(bytes.left(int(size)));
            }
        });
    }

    static bool listen(SoundEngine *engine)
    {
        return engine->listen(QHostAddress(QStringLiteral("127.20.22.1")), 0);
    }

    quint16 port() const { return m_socket.localPort(); }

    // Sends and waits until the engine has heard it, so that datagrams never pile up.
    bool send(const QByteArray &datagram)
    {
        const quint64 before = heard();
        if (m_socket.writeDatagram(datagram, m_engine->address(), m_engine->port()) != datagram.size())
            return false;
        return waitFor([&] { return heard() > before; });
    }
    bool send(const char *hexText) { return send(hex(hexText)); }

    // Sends everything before any of it is read, so that no time passes between one and the next.
    bool sendAtOnce(const QList<QByteArray> &datagrams)
    {
        const quint64 all = heard() + quint64(datagrams.size());
        for (const QByteArray &datagram : datagrams)
            throwAt(datagram);
        return waitFor([&] { return heard() >= all; });
    }

    // Sends without waiting.
    void throwAt(const QByteArray &datagram)
    {
        m_socket.writeDatagram(datagram, m_engine->address(), m_engine->port());
    }

    // Takes what the engine has sent so far. A marker sent after it tells when all of it has come.
    QList<QByteArray> take()
    {
        const QByteArray marker = hex("7E7E7E7E");
        // An engine that has vanished says nothing.
        if (!m_engine->sendRaw(marker)) {
            QCoreApplication::processEvents();
            const QList<QByteArray> taken = received;
            received.clear();
            return taken;
        }
        if (!waitFor([&] { return received.contains(marker); }))
            return {QByteArrayLiteral("no marker")};
        const int at = received.indexOf(marker);
        const QList<QByteArray> taken = received.mid(0, at);
        received = received.mid(at + 1);
        return taken;
    }

    QList<QByteArray> received;

private:
    // QTest::qWaitFor rests between two looks; thousands of exchanges have no time for that.
    template<typename Condition>
    static bool waitFor(Condition condition)
    {
        const QDeadlineTimer deadline(30000);
        while (!condition()) {
            if (deadline.hasExpired())
                return false;
            QCoreApplication::processEvents();
        }
        return true;
    }

    // Everything that has arrived, lost and late datagrams included.
    quint64 heard() const
    {
        const SoundEngine::Counters counters = m_engine->counters();
        return counters.datagrams + counters.lost + counters.heldBack;
    }

    SoundEngine *m_engine;
    QUdpSocket m_socket;
};
