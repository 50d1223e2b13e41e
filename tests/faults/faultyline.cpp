#include "faultyline.h"

#include "support/datagram.h"

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
    bool parameterArrived = false;
    while (!parameterArrived && !waiting.hasExpired(workAgainMs)) {
        module.setDirectOut1Level(99);
        for (QByteArray datagram = peer.next(tryMs); !parameterArrived && !datagram.isNull();
             datagram = peer.next(0))
            parameterArrived = datagram == testsupport::datagram("IM 0003 0bb9633b 0bb96200 0bb90663");
    }
    bool eventArrived = false;
    while (parameterArrived && !eventArrived && !waiting.hasExpired(workAgainMs))
        eventArrived = peer.settle(&module, tryMs);
    peer.discardPending();
    return eventArrived;
}

FarEngineThread::FarEngineThread(const EngineNetwork &network)
{
    run([&network] {
        if (!network.enterEngineSide())
            qFatal("cannot enter the engine's side of the network");
    });
}
