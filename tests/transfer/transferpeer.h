#pragma once

#include "tag.h"

#include "support/enginepeer.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

using testsupport::EnginePeer;

/// One event of the sound engine: its tag and two values.
struct EngineEvent
{
    Tag tag;
    quint16 a;
    quint16 b;
};
using EngineEvents = std::vector<EngineEvent>;

/// A simulated sound engine with a thread of its own. It keeps every datagram, answers queries and end
/// packets, and sends events at chosen points of a transfer. All methods may be called from any thread.
class TransferPeer
{
public:
    /// Binds the address at a free port.
    explicit TransferPeer(const QString &address);
    ~TransferPeer();

    /// ADDRESS:PORT, for ZELTACONNECT_ENGINE.
    QString endpoint() const;

    /// Sets the answer to a query. By default queries are not answered.
    void answerQuery(Tag query, const EngineEvents &events);
    /// Sets the answer to an end packet; by default an acknowledgement without error.
    void answerEnd(const EngineEvents &events);
    /// Sets the answer to a start packet.
    void answerStart(const EngineEvents &events);
    /// Sets the answer to the data packet with that number. It is sent once.
    void answerData(quint32 number, const EngineEvents &events);
    /// Sets the events for the first pause of the stream that is longer than 1.5 s. They are sent once.
    void answerPause(const EngineEvents &events);
    /// Sets a function that is called with every datagram, in this object's thread, before the answer.
    void watch(const std::function<void(const QByteArray &)> &watcher);
    /// Does not keep data packets from now on; for very large files.
    void forgetData();

    /// Sends an event to the latest sender.
    void raise(const EngineEvent &event);

    QVector<QByteArray> received() const;
    /// When the kernel received each datagram of received(), in nanoseconds since the epoch.
    QVector<qint64> receivedAtNs() const;
    /// Waits and processes the caller's events. Returns false after timeoutMs.
    bool waitForCount(int count, int timeoutMs) const;
    /// Waits for a datagram that begins with those bytes.
    bool waitForPrefix(const QByteArray &prefix, int timeoutMs) const;
    /// Waits until every datagram that was sent before the call has been received.
    bool waitUntilCaughtUp(int timeoutMs = 60000);
    /// Waits until no datagram has arrived for 1 s. Only the pause before a resend is longer.
    bool waitUntilSilent(int timeoutMs = 120000) const;
    /// Number of the last data packet, -1 before the first.
    qint64 lastDataNumber() const { return m_lastDataNumber; }

private:
    void serve();
    /// Ends the program when the kernel dropped a datagram because the receive buffer was full.
    void verifyNothingDropped() const;
    void react(const QByteArray &datagram, qint64 arrivedNs);
    void reactToPause();
    void raiseAll(const EngineEvents &events);

    const QHostAddress m_address;
    EnginePeer m_socket;
    std::thread m_thread;
    std::atomic<bool> m_ended{false};
    std::atomic<qint64> m_lastDataNumber{-1};
    std::atomic<qint64> m_lastDatagramMs{0};
    std::atomic<int> m_markers{0};
    QElapsedTimer m_clock;

    mutable std::mutex m_mutex;
    QVector<QByteArray> m_received;
    QVector<qint64> m_receivedAtNs;
    QHostAddress m_moduleAddress;
    quint16 m_modulePort = 0;
    std::map<quint16, EngineEvents> m_queryAnswers;
    std::map<quint32, EngineEvents> m_dataAnswers;
    EngineEvents m_startAnswer;
    EngineEvents m_endAnswer;
    EngineEvents m_pauseAnswer;
    std::function<void(const QByteArray &)> m_watcher;
    bool m_keepsData = true;
};
