// A destroyed module leaves no thread, descriptor or memory. The system may count a thread for a moment after
// its end, so threads are counted with QTRY_COMPARE.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/dropwarnings.h"
#include "support/eventstream.h"
#include "support/logcatcher.h"
#include "support/processresources.h"

#include <QPointer>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

constexpr int cycles = 200;

} // namespace

class LifecycleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    // Threads of the previous test may still be ending.
    void init() { QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs); }

    void createdAndDestroyedAtOnce();
    void createdUsedAndDestroyed();
    void destroyedWhileReceiving();
    void noSlotAfterDestructionBegan();
    void deferredDeletion();

private:
    int m_threads = 0;
};

void LifecycleTest::createdAndDestroyedAtOnce()
{
    const EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    {
        const QConnectQmlPlugin first; // Qt opens some resources once and keeps them
    }
    const int descriptors = descriptorCount();
    const int sockets = socketCount();
    {
        const QConnectQmlPlugin module;
        QCOMPARE(socketCount(), sockets + 1);
    }
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    QCOMPARE(descriptorCount(), descriptors);
    QCOMPARE(socketCount(), sockets);
}

void LifecycleTest::createdUsedAndDestroyed()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    const auto cycle = [&peer] {
        QConnectQmlPlugin module;
        if (!peer.connectTo(&module))
            return false;
        peer.send(datagram("TM AC 00780000"));
        peer.send(datagram("IM AC f7050000"));
        return peer.settle(&module) && module.property("tempo").toInt() == 120;
    };
    for (int i = 0; i < 20; ++i)
        QVERIFY(cycle());

    const int descriptors = descriptorCount();
    const long long heap = heapBytes();
    for (int i = 0; i < cycles; ++i) {
        QVERIFY(cycle());
        QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
        QCOMPARE(descriptorCount(), descriptors);
    }
    // A module takes some tens of kilobytes, so a leak of more than 0.5 % of it exceeds the bound. The caught
    // log is not counted.
    const long long logged = log.lines().size() * 512LL;
    QVERIFY2(heap < 0 || heapBytes() - heap < 64 * 1024 + logged,
             qPrintable(QStringLiteral("%1 bytes more").arg(heapBytes() - heap)));
    QCOMPARE(log.warnings(), QStringList());
}

void LifecycleTest::destroyedWhileReceiving()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    for (int i = 0; i < 20; ++i) {
        auto module = std::make_unique<QConnectQmlPlugin>();
        QVERIFY(peer.connectTo(module.get()));
        {
            const EventStream stream(peer);
            QTRY_COMPARE_WITH_TIMEOUT(module->property("tempo").toInt(), 120, patienceMs);
            module.reset();
            QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 1, patienceMs); // the stream's own
        }
        QCoreApplication::processEvents();
        QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    }
    QCOMPARE(withoutDrops(log.warnings()), QStringList());
}

void LifecycleTest::noSlotAfterDestructionBegan()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    for (int i = 0; i < 20; ++i) {
        auto module = std::make_unique<QConnectQmlPlugin>();
        QVERIFY(peer.connectTo(module.get()));
        const SignalRecorder recorder(module.get());
        QVERIFY(peer.settle(module.get()));
        // When the module is destroyed, the event queue of the GUI thread contains signals, and more arrive.
        const EventStream stream(peer);
        QTRY_VERIFY_WITH_TIMEOUT(recorder.count() > 20, patienceMs);
        const int before = recorder.count();
        module.reset();
        QCOMPARE(recorder.count(), before);
        QCoreApplication::processEvents();
        QCOMPARE(recorder.count(), before);
    }
    QCOMPARE(withoutDrops(log.warnings()), QStringList());
}

void LifecycleTest::deferredDeletion()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    auto *module = new QConnectQmlPlugin;
    QVERIFY(peer.connectTo(module));
    QVERIFY(peer.settle(module));
    const int sockets = socketCount();
    const QPointer<QConnectQmlPlugin> watched(module);
    module->deleteLater();
    QTRY_VERIFY_WITH_TIMEOUT(watched.isNull(), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    QCOMPARE(socketCount(), sockets - 1);
}

QTEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
