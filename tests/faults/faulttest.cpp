#include "faulttest.h"

#include "support/hex.h"

#include <QElapsedTimer>

using namespace testsupport;

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";
constexpr int patienceMs = 15000;
constexpr int tryMs = 200;

} // namespace

void FaultTest::initTestCase()
{
    if (!m_noNetwork.isEmpty())
        QSKIP(qPrintable(QStringLiteral("needs a network namespace of its own: ") + m_noNetwork));
}

void FaultTest::init()
{
    QVERIFY(inPrivateNetwork());
    qunsetenv(variable);
}

// Not even a test that fails leaves the fixed address behind.
void FaultTest::cleanup()
{
    qputenv(variable, "127.20.21.99");
}

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
    while (!heard && !waiting.hasExpired(patienceMs)) {
        module.setLedEnabled(9, true);
        for (QByteArray datagram = peer.next(tryMs); !heard && !datagram.isNull(); datagram = peer.next(0))
            heard = datagram == hex("4c44 0009 0001");
    }
    bool answered = false;
    while (heard && !answered && !waiting.hasExpired(patienceMs))
        answered = peer.settle(&module, tryMs);
    peer.discardPending();
    return answered;
}

FarEngineThread::FarEngineThread(const EngineNetwork &network)
{
    run([&network] {
        if (!network.enterEngineSide())
            qFatal("the engine's side of the network cannot be entered");
    });
}
