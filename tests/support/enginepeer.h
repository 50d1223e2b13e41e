#pragma once

#include "support/patience.h"

#include <QByteArray>
#include <QHostAddress>
#include <QString>

class QObject;

namespace testsupport {

/// The sound engine's end of the wire: a plain socket that shows every datagram the module sends and sends
/// whatever a test wants. Make it before the module, as the engine of the device is there first.
///
/// Silence is checked with fences instead of pauses: since datagrams keep their order, a known one that is
/// the next to arrive proves that nothing came before it.
class EnginePeer
{
public:
    /// The address that ZELTACONNECT_ENGINE names, port 19797.
    EnginePeer();
    explicit EnginePeer(const QHostAddress &address, quint16 port = enginePort);
    /// Takes over a bound socket, say one that was opened in another network namespace.
    explicit EnginePeer(int descriptor);
    ~EnginePeer();
    Q_DISABLE_COPY(EnginePeer)

    static constexpr quint16 enginePort = 19797;
    /// How long a datagram is waited for. Less than patience, so that a module that does not send lets more
    /// than one test tell of it.
    static constexpr int answerMs = patienceMs / 4;

    /// False when the address could not be bound; errorString() says why.
    bool isOpen() const { return m_descriptor >= 0; }
    QString errorString() const { return m_error; }

    /// The next datagram, waiting while the event loop runs. A null array (isNull()) when none arrives in
    /// time; an empty datagram is an empty array that is not null.
    QByteArray next(int timeoutMs = answerMs);
    /// True when a datagram is there to be read now.
    bool hasPending() const;
    /// Number of datagrams thrown away. Does not wait.
    int discardPending();

    /// Where the last datagram came from.
    QHostAddress moduleAddress() const { return m_moduleAddress; }
    quint16 modulePort() const { return m_modulePort; }

    /// Sends to where the last datagram came from. False when the module never spoke or the send failed.
    bool send(const QByteArray &datagram);
    bool sendTo(const QByteArray &datagram, const QHostAddress &address, quint16 port);

    /// Lets the module speak once, so that its address is learned. The module is a ZeltaConnect object, made
    /// in C++ or by QML. True when its datagram was the next to arrive.
    bool connectTo(QObject *module);

    /// True when the module has sent nothing that was not read yet: its answer to a call made now is the next
    /// datagram to arrive.
    bool nothingSentBy(QObject *module);

    /// Waits until everything sent up to now has gone through the module: sends an event of kind "ZZ", which
    /// nothing understands, and waits for the module's signal of it. SignalRecorder leaves these out.
    bool settle(QObject *module, int timeoutMs = answerMs);

    static constexpr quint16 fenceKind = 0x5A5A;

private:
    void open(const QHostAddress &address, quint16 port);
    bool receive(QByteArray &datagram);

    int m_descriptor = -1;
    QString m_error;
    QHostAddress m_moduleAddress;
    quint16 m_modulePort = 0;
    quint16 m_fenceCount = 0;
};

} // namespace testsupport
