// Stands in for the module in tests of the simulated engine.
#pragma once

#include "simulator/soundengine.h"
#include "support/datagram.h"
#include "support/hex.h"

#include <QDeadlineTimer>
#include <QTest>
#include <QUdpSocket>

using testsupport::datagram;
using testsupport::hex;

/// The module's side of the wire: one socket, in the engine's thread.
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

    // Sends a datagram and waits until the engine has received it, so that no buffer overflows.
    bool send(const QByteArray &datagram)
    {
        const quint64 before = arrived();
        if (m_socket.writeDatagram(datagram, m_engine->address(), m_engine->port()) != datagram.size())
            return false;
        return waitFor([&] { return arrived() > before; });
    }
    bool send(const char *hexText) { return send(datagram(hexText)); }

    // Sends all datagrams before the engine reads the first one.
    bool sendAtOnce(const QList<QByteArray> &datagrams)
    {
        const quint64 all = arrived() + quint64(datagrams.size());
        for (const QByteArray &datagram : datagrams)
            post(datagram);
        return waitFor([&] { return arrived() >= all; });
    }

    // Sends without waiting for the engine.
    void post(const QByteArray &datagram)
    {
        m_socket.writeDatagram(datagram, m_engine->address(), m_engine->port());
    }

    // Returns everything that the engine has sent since the last call. A marker shows when all of it has
    // arrived.
    QList<QByteArray> take()
    {
        const QByteArray marker = hex("7E7E7E7E");
        // An engine that has vanished sends no marker.
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
    // QTest::qWaitFor() sleeps between two checks, which is too slow for thousands of exchanges.
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

    // All datagrams that arrived, including lost and delayed ones.
    quint64 arrived() const
    {
        const SoundEngine::Counters counters = m_engine->counters();
        return counters.datagrams + counters.lost + counters.heldBack;
    }

    SoundEngine *m_engine;
    QUdpSocket m_socket;
};
