#pragma once

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

/// One event of the sound engine: its kind and two values.
struct EngineEvent
{
    quint16 id;
    quint16 a;
    quint16 b;
};
using EngineEvents = std::vector<EngineEvent>;

/// The sound engine's end of the wire, in a thread of its own. It keeps every datagram, answers queries and
/// end packets, and raises events at chosen points of a transfer. All methods may be called from any thread.
class TransferPeer
{
public:
    /// Binds the address, at port 19797 or the next free one.
    explicit TransferPeer(const QString &address);
    ~TransferPeer();

    /// ADDRESS:PORT, as ZELTACONNECT_ENGINE takes it.
    QString endpoint() const;

    /// What a query is answered with; a query without an answer stays unanswered.
    void answerQuery(quint16 query, const EngineEvents &events);
    /// What follows an end packet; by default an acknowledgement without error.
    void answerEnd(const EngineEvents &events);
    /// What follows the start packet.
    void answerStart(const EngineEvents &events);
    /// What follows the data packet of that number, once.
    void answerData(quint32 number, const EngineEvents &events);
    /// What is raised, once, in the first pause of the stream that lasts longer than a second and a half.
    void answerPause(const EngineEvents &events);
    /// Sees every datagram in the peer's thread before it is answered.
    void watch(const std::function<void(const QByteArray &)> &watcher);
    /// Keeps data packets no longer; for transfers that are too large to hold.
    void forgetData();

    /// Sends an event to whoever sent last.
    void raise(const EngineEvent &event);

    QVector<QByteArray> received() const;
    /// When the kernel took each of the datagrams received() from the sender, in nanoseconds. How long this
    /// peer's thread took to read them makes no difference.
    QVector<qint64> receivedAtNs() const;
    /// Waits while the caller's events are processed; false after timeoutMs.
    bool waitForCount(int count, int timeoutMs) const;
    /// The same for a datagram that begins with those bytes.
    bool waitForPrefix(const QByteArray &prefix, int timeoutMs) const;
    /// Waits until all that was sent to this peer up to now has been received.
    bool waitUntilCaughtUp(int timeoutMs = 60000);
    /// Waits until nothing has come for a second, longer than any pause between packets, resends apart.
    bool waitUntilSilent(int timeoutMs = 120000) const;
    /// Number of the last data packet, -1 before the first.
    qint64 lastDataNumber() const { return m_lastDataNumber; }

private:
    void serve();
    /// Ends the program when this socket was too full for a datagram: the product did not lose it.
    void verifyNothingDropped() const;
    void react(const QByteArray &datagram, qint64 arrivedNs);
    void reactToPause();
    void raiseAll(const EngineEvents &events);

    QString m_address;
    quint16 m_port = 0;
    int m_socket = -1;
    int m_bufferBytes = 0;
    std::thread m_thread;
    std::atomic<bool> m_ended{false};
    std::atomic<qint64> m_lastDataNumber{-1};
    std::atomic<qint64> m_lastDatagramMs{0};
    std::atomic<int> m_markers{0};
    QElapsedTimer m_clock;

    mutable std::mutex m_mutex;
    QVector<QByteArray> m_received;
    QVector<qint64> m_receivedAtNs;
    std::vector<char> m_sender;
    std::map<quint16, EngineEvents> m_queryAnswers;
    std::map<quint32, EngineEvents> m_dataAnswers;
    EngineEvents m_startAnswer;
    EngineEvents m_endAnswer;
    EngineEvents m_pauseAnswer;
    std::function<void(const QByteArray &)> m_watcher;
    bool m_keepsData = true;
};
