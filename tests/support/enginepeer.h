#pragma once

#include "support/patience.h"

#include <QByteArray>
#include <QHostAddress>
#include <QString>

class QObject;

namespace testsupport {

/// The sound engine's end of the connection: a plain socket that receives the datagrams of the module and
/// sends the datagrams of a test. Create it before the module.
///
/// To check for silence, the class uses fences instead of pauses. Datagrams keep their order. If a known
/// datagram is the next one to arrive, nothing was sent before it.
class EnginePeer
{
public:
    /// The address that ZELTACONNECT_ENGINE names, port 19797.
    EnginePeer();
    /// Port 0 stands for any free port.
    explicit EnginePeer(const QHostAddress &address, quint16 port = enginePort);
    /// Takes ownership of a bound socket, for example of another network namespace.
    explicit EnginePeer(int descriptor);
    ~EnginePeer();
    Q_DISABLE_COPY(EnginePeer)

    static constexpr quint16 enginePort = 19797;
    /// The requested size of the receive buffer. An ordinary user gets at most net.core.rmem_max.
    static constexpr int receiveBufferBytes = 8 * 1024 * 1024;
    /// How long next() waits for a datagram. Shorter than patienceMs, so that several tests of one program
    /// can report that the module does not send.
    static constexpr int answerMs = patienceMs / 4;

    /// False if the address could not be bound; errorString() then returns the reason.
    bool isOpen() const { return m_descriptor >= 0; }
    QString errorString() const { return m_error; }
    quint16 port() const;
    /// The socket, for its options and statistics.
    int descriptor() const { return m_descriptor; }

    /// Waits for the next datagram and processes events meanwhile. Returns a null array if none arrives in
    /// time. An empty datagram is returned as an empty array that is not null.
    QByteArray next(int timeoutMs = answerMs);
    /// Reads a datagram that has arrived. Returns false if there is none. Does not wait.
    bool receive(QByteArray &datagram);
    /// True if a datagram can be read now or within the time.
    bool hasPending(int timeoutMs = 0) const;
    /// Discards the datagrams that have arrived and returns their number. Does not wait.
    int discardPending();

    /// The sender of the last datagram.
    QHostAddress moduleAddress() const { return m_moduleAddress; }
    quint16 modulePort() const { return m_modulePort; }

    /// Sends to the sender of the last datagram. False if there is none or if sending fails.
    bool send(const QByteArray &datagram);
    bool sendTo(const QByteArray &datagram, const QHostAddress &address, quint16 port);

    /// Makes the module send a datagram and learns the module's address from it. The module is a ZeltaConnect
    /// object, created in C++ or by QML. Returns true if its datagram is the next one to arrive.
    bool connectTo(QObject *module);

    /// Makes the module send a datagram. Returns true if it is the next one to arrive: the module has sent
    /// nothing else since the last read.
    bool nothingSentBy(QObject *module);

    /// Waits until the module has processed all datagrams sent so far: sends an event with the unknown tag ZZ
    /// and waits for the module's signal. SignalRecorder does not record it.
    bool settle(QObject *module, int timeoutMs = answerMs);

    static constexpr quint16 fenceKind = 0x5A5A;

private:
    void open(const QHostAddress &address, quint16 port);

    int m_descriptor = -1;
    QByteArray m_buffer;
    QString m_error;
    QHostAddress m_moduleAddress;
    quint16 m_modulePort = 0;
    quint16 m_fenceCount = 0;
};

} // namespace testsupport
