// Construction and destruction of the control object: parent, datagrams, threads and sockets.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace testsupport;

class LifetimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    // Threads of the previous test may still be ending.
    void init() { QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs); }

    void noParentAndNothingLogged();
    void sendsNothingByItself();
    void worksWithoutAnEngine();
    void deletedWithItsParent();
    void destroyedWhileATransferRuns_data();
    void destroyedWhileATransferRuns();

private:
    int m_threads = 0;
};

void LifetimeTest::noParentAndNothingLogged()
{
    const EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    const QConnectQmlPlugin module;
    QCOMPARE(module.parent(), nullptr);
    QCOMPARE(module.parentItem(), nullptr);
    QCOMPARE(log.lines().size(), 0);
}

void LifetimeTest::sendsNothingByItself()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    auto module = std::make_unique<QConnectQmlPlugin>();
    QCoreApplication::processEvents();
    QVERIFY(peer.nothingSentBy(module.get()));
    QVERIFY(peer.settle(module.get()));
    module.reset();
    QConnectQmlPlugin another;
    QVERIFY(peer.nothingSentBy(&another));
}

// No engine listens at the address. The module starts and sends without a warning.
void LifetimeTest::worksWithoutAnEngine()
{
    // A port that no test uses and that the system does not assign to sockets.
    const QByteArray own = qgetenv("ZELTACONNECT_ENGINE");
    qputenv("ZELTACONNECT_ENGINE", own + ":19798");
    const LogCatcher log;
    QConnectQmlPlugin module;
    qputenv("ZELTACONNECT_ENGINE", own);
    const SignalRecorder recorder(&module);
    module.setSnareStyle(1);
    module.setLedEnabled(3, true);
    QCoreApplication::processEvents();
    QCOMPARE(recorder.texts(), QStringList());
    QCOMPARE(log.warnings(), QStringList());
}

void LifetimeTest::deletedWithItsParent()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const int sockets = socketCount();
    {
        QQuickItem parent;
        auto *module = new QConnectQmlPlugin(&parent);
        QCOMPARE(module->parentItem(), &parent);
        QVERIFY(peer.connectTo(module));
        QVERIFY(peer.settle(module));
    }
    QCOMPARE(socketCount(), sockets);
}

void LifetimeTest::destroyedWhileATransferRuns_data()
{
    QTest::addColumn<bool>("file");

    QTest::newRow("waiting for a reply") << false;
    QTest::newRow("sending a file") << true;
}

void LifetimeTest::destroyedWhileATransferRuns()
{
    QFETCH(bool, file);

    const QTemporaryDir directory;
    QFile bank(directory.filePath(QStringLiteral("bank.bin")));
    QVERIFY(bank.open(QIODevice::WriteOnly));
    QVERIFY(bank.resize(0x8000000)); // takes a minute and a half to send
    bank.close();

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    auto module = std::make_unique<QConnectQmlPlugin>();
    QVERIFY(peer.connectTo(module.get()));
    QVERIFY(peer.settle(module.get()));
    const SignalRecorder recorder(module.get());
    if (file) {
        module->sendSoundBank(bank.fileName());
        QCOMPARE(peer.next(), datagram("DS SB 08000000"));               // "DSSB", the size
        QCOMPARE(peer.next().left(10), datagram("DC SB 00000000 0200")); // "DCSB", number 0, 512 words
    } else {
        module->requestSoundBankVersion();
        QCOMPARE(peer.next(), datagram("SN 0000"));
    }
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 2, patienceMs);

    QCoreApplication::processEvents();
    const QStringList before = recorder.texts();
    QElapsedTimer destroying;
    destroying.start();
    module.reset();
    // The destructor neither sends the rest of the file nor waits 20 s for the reply.
    QVERIFY2(destroying.elapsed() < 10000, qPrintable(QString::number(destroying.elapsed())));
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    QCOMPARE(recorder.texts(), before);
    QCOMPARE(log.warnings(), QStringList());

    // Datagrams sent before the destruction may still be unread. After it, no datagram is sent.
    peer.discardPending();
    QConnectQmlPlugin another;
    QVERIFY(peer.nothingSentBy(&another));
}

QTEST_MAIN(LifetimeTest)
#include "tst_lifetime.moc"
