#include "faultyline.h"

#include "support/hex.h"

#include <QElapsedTimer>

using namespace testsupport;

namespace {

constexpr int workAgainMs = 60000;
constexpr int tryMs = 2000;

} // namespace

FaultyLine::FaultyLine()
    : peer(network.openEngineSocket())
    , connected(network.errorString().isEmpty() && peer.isOpen() && peer.connectTo(&module) &&
                peer.settle(&module))
{}

bool FaultyLine::worksAgain()
{
    QElapsedTimer waiting;
    waiting.start();
    bool heard = false;
    while (!heard && !waiting.hasExpired(workAgainMs)) {
        module.setDirectOut1Level(99);
        for (QByteArray datagram = peer.next(tryMs); !heard && !datagram.isNull(); datagram = peer.next(0))
            heard = datagram == hex("494d0003 0bb9633b 0bb96200 0bb90663");
    }
    bool answered = false;
    while (heard && !answered && !waiting.hasExpired(workAgainMs))
        answered = peer.settle(&module, tryMs);
    peer.discardPending();
    return answered;
}

QStringList warningsOf(const LogCatcher &log)
{
    QStringList warnings = log.warnings();
    warnings.removeAll(QStringLiteral("QObject::connect: Cannot queue arguments of type "
                                      "'QAbstractSocket::SocketError'\n(Make sure "
                                      "'QAbstractSocket::SocketError' is registered using "
                                      "qRegisterMetaType().)"));
    return warnings;
}

FarEngineThread::FarEngineThread(const EngineNetwork &network)
{
    run([&network] {
        if (!network.enterEngineSide())
            qFatal("the engine's side of the network cannot be entered");
    });
}
