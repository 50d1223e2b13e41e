#pragma once

#include <QString>

#include <functional>

namespace testsupport {

/// Moves this process into a network namespace of its own with nothing in it but a loopback device that is
/// up. Call it first in main(), before the application object: without privileges it works only while the
/// process has a single thread. Returns an empty text, or why it cannot be done; skip the tests then.
/// Within it a test may use the fixed address of the engine: nothing leaves the process.
QString enterPrivateNetwork();

/// True when enterPrivateNetwork() succeeded.
bool inPrivateNetwork();

/// Runs a command of iproute2 ("addr add ...") in the calling thread's namespace. Returns what went wrong,
/// or an empty text.
QString ip(const QString &arguments);

/// The two ends of the module's internal network inside the private network: the module at 172.20.21.1 in
/// the namespace of this process, and a second namespace that owns 172.20.21.22 and answers pings.
/// Goes with the object.
class EngineNetwork
{
public:
    EngineNetwork();
    ~EngineNetwork();
    Q_DISABLE_COPY(EngineNetwork)

    /// Empty when the network stands, otherwise what went wrong.
    QString errorString() const { return m_error; }

    /// A UDP socket on the engine's side, bound to 172.20.21.22:19797, for EnginePeer. -1 on failure.
    int openEngineSocket(quint16 port = 19797);

    /// Takes the cable out and puts it back.
    QString cut();
    QString restore();

    /// The same at the engine's end: the module keeps its route, and nobody is there.
    QString cutEngine();
    QString restoreEngine();

    /// Why datagrams cannot be made to get lost on this machine, or nothing when they can.
    static QString noLossReason();

    enum class Direction { Both, ToEngine, ToModule };
    /// Makes the receiving side drop that many of 100 datagrams, at random; the sender does not notice. Ports
    /// are the engine's. Adds to what gets lost already. Needs nftables.
    QString loseDatagrams(int percent, Direction direction = Direction::Both, quint16 firstPort = 1,
                          quint16 lastPort = 65535);
    QString loseNothing();

    /// Runs a function in the engine's namespace, in a thread of its own, and waits for it.
    void onEngineSide(const std::function<void()> &function);
    /// Moves the calling thread to the engine's side for good; what it opens from now on is there.
    bool enterEngineSide() const;

private:
    QString setUp();
    QString nftOnEngineSide(const QByteArray &rules);

    int m_namespace = -1;
    QString m_error;
};

} // namespace testsupport
