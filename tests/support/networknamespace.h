#pragma once

#include <QString>

#include <functional>

namespace testsupport {

/// Moves this process into a new network namespace that holds only a loopback device, which is up. Call it
/// first in main(), before the application object is created: without privileges it works only while the
/// process has a single thread. Returns an empty text, or the reason for the failure; skip the tests in that
/// case. In this namespace a test may use the fixed address of the engine: no packet leaves the namespace.
QString enterPrivateNetwork();

/// True when enterPrivateNetwork() succeeded.
bool inPrivateNetwork();

/// Runs a command of iproute2 ("addr add ...") in the namespace of the calling thread. Returns an empty text,
/// or the error.
QString ip(const QString &arguments);

/// The internal network of the drum module, inside the private network: the module's end has 172.20.21.1 in
/// the namespace of this process, the engine's end has 172.20.21.22 in a second namespace and answers pings.
/// Both exist as long as this object exists. The methods that change the network return an empty text, or the
/// error.
class EngineNetwork
{
public:
    EngineNetwork();
    ~EngineNetwork();
    Q_DISABLE_COPY(EngineNetwork)

    /// Empty when the network works, otherwise the error.
    QString errorString() const { return m_error; }

    /// A UDP socket on the engine's side, bound to 172.20.21.22:19797, for EnginePeer. -1 on failure.
    int openEngineSocket(quint16 port = 19797);

    /// Takes the network device at the module's end down, and up again. restore() waits for the carrier.
    QString cut();
    QString restore();

    /// The same at the engine's end. The module keeps its route.
    QString cutEngine();
    QString restoreEngine();

    /// Turns ARP replies of the engine's end off, and on again. Without them the module's datagrams wait in
    /// its send buffer until the address resolution fails after some seconds.
    QString silenceEngine();
    QString unsilenceEngine();

    /// Removes the module's route to the engine, and adds it again.
    QString removeRoute();
    QString restoreRoute();

    /// The reason why datagrams cannot be dropped on this machine. Empty if they can be dropped.
    static QString noLossReason();

    enum class Direction { Both, ToEngine, ToModule };
    /// Drops a percentage of the datagrams at random at the receiving end; the sender gets no error. The
    /// ports are ports of the engine. Adds to the loss that is already set. Needs nftables.
    QString loseDatagrams(int percent, Direction direction = Direction::Both, quint16 firstPort = 1,
                          quint16 lastPort = 65535);
    QString loseNothing();

    /// Runs a function in the engine's namespace, in a new thread, and waits until it returns.
    void onEngineSide(const std::function<void()> &function);
    /// Moves the calling thread to the engine's namespace permanently. Sockets that it opens later belong to
    /// it.
    bool enterEngineSide() const;

private:
    QString setUp();
    QString waitForCarriers();
    QString nftOnEngineSide(const QByteArray &rules);

    int m_namespace = -1;
    QString m_error;
};

} // namespace testsupport
