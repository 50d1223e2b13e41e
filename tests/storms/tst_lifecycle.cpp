// Creates and destroys many control objects, one after the other and two at a time, while the engine sends or
// a file is transferred. They must release all resources.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/dropwarnings.h"
#include "support/eventstream.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/texts.h"
#include "tests/transfer/session.h"

#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr int cycles = 5000;
#else
constexpr int cycles = 500;
#endif
constexpr int cyclesInTransfer = 200;
constexpr int warmUpCycles = 50;
// A module takes some tens of kilobytes. Less than 1 % of that may remain.
constexpr long long allowedBytesPerCycle = 128;
constexpr long long allowedBytes = 64 * 1024;

} // namespace

class LifecycleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    void init() { QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs); }

    void underTraffic();
    void inTheMiddleOfATransfer();
    void twoAtOnce();

private:
    void verifyGone(int descriptors) const;

    int m_threads = 0;
};

void LifecycleTest::verifyGone(int descriptors) const
{
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    QCOMPARE(descriptorCount(), descriptors);
}

void LifecycleTest::underTraffic()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    LogCatcher log;
    const auto cycle = [&peer] {
        auto module = std::make_unique<QConnectQmlPlugin>();
        if (!peer.connectTo(module.get()))
            return false;
        const EventStream stream(peer);
        const bool heard =
            QTest::qWaitFor([&] { return module->property("tempo").toInt() == 120; }, patienceMs);
        module.reset();
        return heard;
    };
    for (int i = 0; i < warmUpCycles; ++i)
        QVERIFY(cycle());
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);

    log.clear(); // its memory does not belong to the module
    const int descriptors = descriptorCount();
    const long long heap = heapBytes();
    for (int i = 0; i < cycles; ++i) {
        QVERIFY2(cycle(), qPrintable(QString::number(i)));
        verifyGone(descriptors);
        if (QTest::currentTestFailed())
            return;
        // The stream does not wait for the module.
        QCOMPARE(withoutDrops(log.warnings()), QStringList());
        log.clear();
    }
    if (heap < 0)
        return;
    const long long growth = heapBytes() - heap;
    qInfo() << cycles << "objects created and destroyed," << growth << "bytes more";
    QVERIFY(growth < allowedBytes + allowedBytesPerCycle * cycles);
}

void LifecycleTest::inTheMiddleOfATransfer()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("bank.bin"), noise(512 * 400));
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    int descriptors = 0;
    for (int i = 0; i < cyclesInTransfer; ++i) {
        {
            QConnectQmlPlugin module;
            QVERIFY(peer.connectTo(&module));
            module.sendTriggerBank(path);
            // The start packet, then the numbered packets. Each object is destroyed at a different packet.
            QVERIFY(peer.next().startsWith(datagram("DS TB")));
            for (int packet = 0; packet <= i % 15; ++packet)
                QVERIFY(peer.next().startsWith(datagram("DC TB")));
        }
        // All datagrams sent before the destruction have arrived. No datagram is sent after it.
        peer.discardPending();
        if (i == 0)
            descriptors = descriptorCount();
        verifyGone(descriptors);
        if (QTest::currentTestFailed())
            return;
        QVERIFY(!peer.hasPending());
    }
    QCOMPARE(log.warnings(), QStringList());
}

void LifecycleTest::twoAtOnce()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const int descriptors = descriptorCount();
    for (int i = 0; i < 50; ++i) {
        auto first = std::make_unique<QConnectQmlPlugin>();
        auto second = std::make_unique<QConnectQmlPlugin>();
        QVERIFY(peer.connectTo(second.get()));
        QVERIFY(peer.settle(second.get()));
        const SignalRecorder secondRecorder(second.get());
        QVERIFY(peer.connectTo(first.get()));
        const SignalRecorder firstRecorder(first.get());
        QVERIFY(peer.send(datagram("TM AC 00780000")));
        QVERIFY(peer.settle(first.get()));
        QCOMPARE(firstRecorder.texts(), texts({"tempoChanged()"}));
        QCOMPARE(secondRecorder.texts(), QStringList());
        QVERIFY(peer.nothingSentBy(second.get()));

        // After the destruction of one object, the other still receives and sends.
        first.reset();
        QVERIFY(peer.connectTo(second.get()));
        QVERIFY(peer.send(datagram("TM AC 00790000")));
        QVERIFY(peer.settle(second.get()));
        QCOMPARE(secondRecorder.texts(), texts({"tempoChanged()"}));
        QCOMPARE(second->property("tempo").toInt(), 121);
        second.reset();
        verifyGone(descriptors);
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
