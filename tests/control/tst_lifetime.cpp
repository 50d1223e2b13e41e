// The control object at birth and at death: what it sends, shows and leaves behind.

#include "support/connectedmodule.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QMetaProperty>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace testsupport;

class LifetimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    // The threads of the test before may take a moment to go.
    void init() { QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs); }

    void freshState();
    void sendsNothingByItself();
    void standsWithoutAnEngine();
    void goesWithItsParent();
    void destroyedWhileATransferRuns_data();
    void destroyedWhileATransferRuns();

private:
    int m_threads = 0;
};

void LifetimeTest::freshState()
{
    const EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    const QConnectQmlPlugin module;
    QCOMPARE(module.parent(), nullptr);
    QCOMPARE(module.parentItem(), nullptr);
    const QMetaObject *meta = module.metaObject();
    int numbers = 0;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        const QVariant value = property.read(&module);
        QVERIFY2(value.isValid(), property.name());
        if (value.type() != QVariant::String) {
            QVERIFY2(value.toDouble() == 0.0, property.name());
            ++numbers;
        }
    }
    QCOMPARE(numbers, 60);
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

// Nobody listens, and the address is the module's own: it starts all the same, and what comes reaches it.
void LifetimeTest::standsWithoutAnEngine()
{
    // A port where no engine of this test is, nor anybody whom the system gives a port.
    const QByteArray own = qgetenv("ZELTACONNECT_ENGINE");
    qputenv("ZELTACONNECT_ENGINE", own + ":19798");
    const LogCatcher log;
    QConnectQmlPlugin module;
    qputenv("ZELTACONNECT_ENGINE", own);
    const SignalRecorder recorder(&module);
    module.setSnareStyle(1);
    module.setLedEnabled(3, true);
    QTRY_VERIFY_WITH_TIMEOUT(
        log.debugTexts("zeltaconnect.link").contains(QStringLiteral("not handled  \"4c4400030001\" ( 6 )")),
        patienceMs);
    QCOMPARE(recorder.texts(), QStringList());
    // Where the module itself holds the engine's address, only the LED's packet is sent.
    QCOMPARE(log.warnings(), QStringList{QStringLiteral("QIODevice::write (QUdpSocket): device not open")});
}

void LifetimeTest::goesWithItsParent()
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
    QVERIFY(bank.resize(0x8000000)); // a minute and a half of it
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
        QCOMPARE(peer.next(), hex("44535342 08000000"));               // "DSSB", the size
        QCOMPARE(peer.next().left(10), hex("44435342 00000000 0200")); // "DCSB", number 0, 512 words
    } else {
        module->requestSoundBankVersion();
        QCOMPARE(peer.next(), hex("534e0000"));
    }
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 2, patienceMs);

    QCoreApplication::processEvents();
    const QStringList before = recorder.texts();
    QElapsedTimer destroying;
    destroying.start();
    module.reset();
    // Neither the file nor the wait for the reply, which takes 20 s, is seen to its end.
    QVERIFY2(destroying.elapsed() < 10000, qPrintable(QString::number(destroying.elapsed())));
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    QCOMPARE(recorder.texts(), before);
    QCOMPARE(log.warnings(), QStringList());

    // What was sent before may still lie there; nothing comes after.
    peer.discardPending();
    QConnectQmlPlugin another;
    QVERIFY(peer.nothingSentBy(&another));
}

QTEST_MAIN(LifetimeTest)
#include "tst_lifetime.moc"
