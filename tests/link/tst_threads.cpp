// The work of each thread, and the start and end of module and engine.

#include "link/sockettransceiver.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>

using namespace testsupport;

namespace {

// How long the receive thread continues after it was asked to end.
constexpr int lingerMs = 200;

} // namespace

class ThreadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    // The system may count a thread for a moment after its end.
    void init() { QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs); }

    void noThreadUntilADatagramArrives();
    void firstDatagramStartsTheThread();
    void startingTwiceDoesNothing();
    void moduleSignalsInTheGuiThread();
    void firstSendFromAnotherThread_data();
    void firstSendFromAnotherThread();
    void sendsFromTwoThreads();
    void everyModuleHasAPortOfItsOwn();
    void newModuleAfterTheOld();
    void engineRestarts();
    void socketIsOpenUntilTheReceiveThreadHasEnded();

private:
    int m_threads = 0;
};

void ThreadsTest::noThreadUntilADatagramArrives()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    auto module = std::make_unique<QConnectQmlPlugin>();
    QVERIFY(peer.connectTo(module.get()));
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);

    module.reset(); // does not wait for a thread that was not started
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
}

void ThreadsTest::firstDatagramStartsTheThread()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    SocketTransceiver link;
    QVERIFY(!link.isRunning());
    link.writeToSocket(QByteArray("hello"), link.engine().host, link.engine().port);
    QCOMPARE(peer.next(), QByteArray("hello"));
    QVERIFY(!link.isRunning());
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);

    // Any datagram starts it, even an empty one.
    QVERIFY(peer.send(QByteArray("")));
    QTRY_VERIFY_WITH_TIMEOUT(link.isRunning(), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 1, patienceMs);
    QCOMPARE(link.priority(), QThread::LowPriority);
}

void ThreadsTest::startingTwiceDoesNothing()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    SocketTransceiver link;
    std::atomic<int> started{0}; // emitted in the thread that starts
    connect(&link, &QThread::started, [&started] { ++started; });
    link.startTransceiver();
    link.startTransceiver();
    QVERIFY(link.isRunning());
    QTRY_COMPARE_WITH_TIMEOUT(started.load(), 1, patienceMs);
    QVERIFY(QMetaObject::invokeMethod(&link, "startTransceiver"));
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 1, patienceMs);
    QCOMPARE(started.load(), 1);
}

void ThreadsTest::moduleSignalsInTheGuiThread()
{
    const LogCatcher log;
    ConnectedModule engine;
    QVERIFY(engine.connected);
    int inGuiThread = 0;
    int elsewhere = 0;
    const auto note = [&] {
        ++(QThread::currentThread() == qApp->thread() ? inGuiThread : elsewhere);
    };
    connect(&engine.module, &QConnectQmlPlugin::tempoChanged, &engine.module, note, Qt::DirectConnection);
    connect(&engine.module, &QConnectQmlPlugin::masterCpChanged, &engine.module, note, Qt::DirectConnection);
    connect(&engine.module, &QConnectQmlPlugin::outputLevelsChanged, &engine.module, note,
            Qt::DirectConnection);
    connect(&engine.module, &QConnectQmlPlugin::testCommand, &engine.module, note, Qt::DirectConnection);
    connect(&engine.module, &QConnectQmlPlugin::sysEx, &engine.module, note, Qt::DirectConnection);
    connect(&engine.module, &QConnectQmlPlugin::noteChanged, &engine.module, note, Qt::DirectConnection);
    QVERIFY(engine.deliver({datagram("TM AC 00780000"), datagram("CR 0000") + QByteArray(12, '\x01'),
                            datagram("DR") + QByteArray(36, '\x01'), datagram("IM AC b90b1263"),
                            datagram("IM AC b90b3462"), datagram("IM AC b90b5606"),
                            datagram("IM AC f7050000"), datagram("IM AC 99096426")}));
    QCOMPARE(inGuiThread, 6);
    QCOMPARE(elsewhere, 0);
}

void ThreadsTest::firstSendFromAnotherThread_data()
{
    QTest::addColumn<bool>("bytes");

    QTest::newRow("bytes") << true;
    QTest::newRow("pointer and size") << false;
}

// The transfer thread may be the first to send. The answer must arrive.
void ThreadsTest::firstSendFromAnotherThread()
{
    QFETCH(bool, bytes);

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    SocketTransceiver link;
    const SignalRecorder recorder(&link);
    std::atomic<qint64> written{-2};
    std::thread sender([&] {
        const QByteArray text("first");
        written =
            bytes ? link.writeToSocket(text, link.engine().host, link.engine().port)
                  : link.writeToSocket(text.constData(), text.size(), link.engine().host, link.engine().port);
    });
    sender.join();
    QCOMPARE(written.load(), qint64(5));
    QCOMPARE(peer.next(), QByteArray("first"));
    QVERIFY(peer.send(datagram("AB AC 00010002")));
    QTRY_COMPARE_WITH_TIMEOUT(recorder.count("sockUdpPacketArrived"), 1, patienceMs);
}

void ThreadsTest::sendsFromTwoThreads()
{
    constexpr int each = 150; // the buffer of any socket holds this number
    ConnectedModule engine;
    QVERIFY(engine.connected);
    std::thread sender([&engine] {
        for (int i = 0; i < each; ++i)
            engine.module.writeBinaryData(QByteArray("thread ") + QByteArray::number(i));
    });
    for (int i = 0; i < each; ++i)
        engine.module.setXFadeBalance(quint8(i & 0x7F));
    sender.join();

    int fromThread = 0;
    int fromGui = 0;
    for (int i = 0; i < 2 * each; ++i) {
        const QByteArray datagram = engine.peer.next();
        if (datagram.startsWith("thread ")) {
            QCOMPARE(datagram, QByteArray("thread ") + QByteArray::number(fromThread++));
        } else {
            QByteArray expected = testsupport::datagram("IM 0003 0bb96337 0bb96205 0bb90600");
            expected[15] = char(fromGui++ & 0x7F);
            QCOMPARE(datagram, expected);
        }
    }
    QCOMPARE(fromThread, each);
    QCOMPARE(fromGui, each);
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void ThreadsTest::everyModuleHasAPortOfItsOwn()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    QConnectQmlPlugin first;
    QVERIFY(peer.connectTo(&first));
    const quint16 firstPort = peer.modulePort();
    QConnectQmlPlugin second;
    QVERIFY(peer.connectTo(&second));
    QVERIFY(peer.modulePort() != firstPort);

    const SignalRecorder firstRecorder(&first);
    const SignalRecorder secondRecorder(&second);
    QVERIFY(peer.send(datagram("TM AC 00780000")));
    QVERIFY(peer.settle(&second));
    QCOMPARE(secondRecorder.texts(), texts({"tempoChanged()"}));
    QCOMPARE(second.property("tempo").toInt(), 120);
    QVERIFY(peer.connectTo(&first));
    QVERIFY(peer.settle(&first));
    QCOMPARE(firstRecorder.texts(), QStringList());
    QCOMPARE(first.property("tempo").toInt(), 0);
}

void ThreadsTest::newModuleAfterTheOld()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    for (int i = 0; i < 3; ++i) {
        QConnectQmlPlugin module;
        QVERIFY(peer.connectTo(&module));
        QVERIFY(peer.send(datagram("TM AC 00780000")));
        QVERIFY(peer.settle(&module));
        QCOMPARE(module.property("tempo").toInt(), 120);
    }
}

void ThreadsTest::engineRestarts()
{
    auto peer = std::make_unique<EnginePeer>();
    QVERIFY2(peer->isOpen(), qPrintable(peer->errorString()));
    QConnectQmlPlugin module;
    QVERIFY(peer->connectTo(&module));
    const quint16 port = peer->modulePort();
    QVERIFY(peer->settle(&module));

    const LogCatcher log;
    peer.reset();
    for (int i = 0; i < 10; ++i)
        module.setXFadeBalance(1);
    peer = std::make_unique<EnginePeer>();
    QVERIFY2(peer->isOpen(), qPrintable(peer->errorString()));
    QVERIFY(peer->connectTo(&module));
    QCOMPARE(peer->modulePort(), port);
    QVERIFY(peer->send(datagram("TM AC 00780000")));
    QVERIFY(peer->settle(&module));
    QCOMPARE(module.property("tempo").toInt(), 120);
    QCOMPARE(log.warnings(), QStringList());
}

// A handler blocks the receive thread while the link is destroyed. If the descriptor is closed meanwhile,
// another file may get the same descriptor, and the thread would read that file.
void ThreadsTest::socketIsOpenUntilTheReceiveThreadHasEnded()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    auto link = std::make_unique<SocketTransceiver>();
    link->writeToSocket(QByteArray("hello"), link->engine().host, link->engine().port);
    QCOMPARE(peer.next(), QByteArray("hello"));

    const int sockets = socketCount();
    std::atomic<bool> handlerRuns{false};
    std::atomic<bool> closed{false};
    connect(
        link.get(), &SocketTransceiver::sockUdpPacketArrived, link.get(),
        [&] {
            handlerRuns = true;
            while (!QThread::currentThread()->isInterruptionRequested() && socketCount() == sockets)
                QThread::msleep(1);
            QElapsedTimer lingering;
            lingering.start();
            while (!closed && !lingering.hasExpired(lingerMs)) {
                closed = socketCount() != sockets;
                QThread::msleep(1);
            }
        },
        Qt::DirectConnection);
    QVERIFY(peer.send(datagram("AB AC 00010002")));
    QTRY_VERIFY_WITH_TIMEOUT(handlerRuns.load(), patienceMs);
    link.reset();
    QVERIFY(!closed);
    QCOMPARE(socketCount(), sockets - 1);
}

QTEST_MAIN(ThreadsTest)
#include "tst_threads.moc"
