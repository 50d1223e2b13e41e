// The module at its real address, 172.20.21.22, in a network that exists only inside this process.

#include "support/connectedmodule.h"
#include "support/fakeping.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/networknamespace.h"
#include "support/privatenetworktest.h"
#include "support/processresources.h"
#include "support/texts.h"
#include "transfer/datapacket.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";

const QHostAddress &engineHost()
{
    static const QHostAddress host(QStringLiteral("172.20.21.22"));
    return host;
}

} // namespace

class FixedAddressTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void everythingGoesToTheEngine();
    void unreadableAddressFallsBack();
    void emptyAddressIsTheFixedOne();
    void addressAndPort();
    void systemPingIsAnswered();
    void systemPingIsNotAnswered();
    void successfulBind();
    void cutAndRestored();
    void lossLosesOnlyWhatIsLost();
};

void FixedAddressTest::everythingGoesToTheEngine()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    const LogCatcher log;
    const FakePing ping(texts({"1 packets transmitted, 1 packets received, 0% packet loss\n"}));
    QConnectQmlPlugin module;
    // Once, or more often when this machine is so busy that it takes more than a second.
    QStringList calls = ping.calls();
    calls.removeDuplicates();
    QCOMPARE(calls, texts({"-c 1 172.20.21.22"}));

    module.setSnareStyle(1);
    QCOMPARE(peer.next(), hex("494d0003 0bb96337 0bb96204 0bb90601"));
    QCOMPARE(peer.moduleAddress(), QHostAddress(QStringLiteral("172.20.21.1")));
    module.setLedEnabled(3, true);
    QCOMPARE(peer.next(), hex("4c44 0003 0001"));
    module.sendSysEx({1});
    QCOMPARE(peer.next(), hex("494d0001 06f001f7"));

    const SignalRecorder recorder(&module);
    QVERIFY(peer.send(hex("544d4143 00780000")));
    QVERIFY(peer.settle(&module));
    QCOMPARE(recorder.texts(), texts({"tempoChanged()"}));
    QVERIFY(peer.nothingSentBy(&module));
    QCOMPARE(log.warnings(), QStringList());
}

void FixedAddressTest::unreadableAddressFallsBack()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    qputenv(variable, "engine.local");
    const LogCatcher log;
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    QCOMPARE(log.warnings(),
             texts({"ZELTACONNECT_ENGINE is \"engine.local\", which is not ADDRESS or ADDRESS:PORT "
                    "(IPv4); using \"172.20.21.22\""}));
}

void FixedAddressTest::emptyAddressIsTheFixedOne()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    qputenv(variable, "");
    const LogCatcher log;
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
    QCOMPARE(log.lines().size(), 0);
}

void FixedAddressTest::addressAndPort()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer usual(network.openEngineSocket());
    EnginePeer other(network.openEngineSocket(20797));
    QVERIFY(usual.isOpen() && other.isOpen());
    qputenv(variable, "172.20.21.22:20797");
    QConnectQmlPlugin module;
    QVERIFY(other.connectTo(&module));
    QVERIFY(other.settle(&module));
    QVERIFY(!usual.hasPending());
}

void FixedAddressTest::systemPingIsAnswered()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    const SystemPing systemPing;
    QProcess probe;
    probe.start(QStringLiteral("ping"), {QStringLiteral("-c"), QStringLiteral("1"), engineHost().toString()});
    QVERIFY(probe.waitForFinished());
    const QByteArray output = probe.readAll();
    if (!output.contains("packets received"))
        QSKIP("no ping, or one that words its summary differently (Debian package inetutils-ping is the one "
              "to have)");

    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QConnectQmlPlugin module;
    QStringList calls = systemPing.calls();
    QVERIFY(calls.size() >= 2); // the probe and an attempt
    calls.removeDuplicates();
    QCOMPARE(calls, texts({"-c 1 172.20.21.22"}));
    QVERIFY(peer.connectTo(&module));
}

void FixedAddressTest::systemPingIsNotAnswered()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QCOMPARE(network.cut(), QString());
    const SystemPing systemPing;
    QElapsedTimer starting;
    starting.start();
    QConnectQmlPlugin module;
    const qint64 elapsed = starting.elapsed();
    // Five attempts of a second's pause and at most a second's wait each; then the interface starts anyway.
    QVERIFY2(elapsed >= 5000, qPrintable(QString::number(elapsed)));
    QVERIFY2(systemPing.calls().size() <= 5, qPrintable(QString::number(systemPing.calls().size())));
    QCOMPARE(network.restore(), QString());
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
}

// When the engine's address is the module's own, the bind succeeds and byte arrays take the stream-style
// write, which a socket without a peer refuses. The six-byte record goes out regardless: to the module
// itself.
void FixedAddressTest::successfulBind()
{
    QCOMPARE(ip(QStringLiteral("addr add 172.20.21.22/32 dev lo")), QString());
    LogCatcher log;
    auto module = std::make_unique<QConnectQmlPlugin>();
    const SignalRecorder recorder(module.get());

    // The address is taken, so this module is the one that listens there.
    EnginePeer sender(engineHost(), 0);
    QVERIFY2(sender.isOpen(), qPrintable(sender.errorString()));
    QVERIFY(sender.sendTo(hex("544d4143 00780000"), engineHost(), EnginePeer::enginePort));
    QTRY_COMPARE_WITH_TIMEOUT(recorder.texts(), texts({"tempoChanged()"}), patienceMs);

    log.clear();
    module->setSnareStyle(1);
    module->requestOutsUpdate();
    module->sendSysEx({1, 2, 3});
    QVERIFY(module->writeBinaryData(QByteArray("bytes")) < 0);
    QVERIFY(module->writeBinaryData(DATA_PACKET(0x4453, 0x5442)) < 0);
    module->setLedEnabled(3, true);
    QTRY_VERIFY_WITH_TIMEOUT(!log.debugTexts("zeltaconnect.link").isEmpty(), patienceMs);
    module->setLedEnabled(4, false);
    QTRY_COMPARE_WITH_TIMEOUT(
        log.debugTexts("zeltaconnect.link"),
        texts({"not handled  \"4c4400030001\" ( 6 )", "not handled  \"4c4400040000\" ( 6 )"}), patienceMs);
    // A stream-style write needs a connected socket, so each of the five said that it was not sent.
    const QString notSent = QStringLiteral("QIODevice::write (QUdpSocket): device not open");
    QCOMPARE(log.warnings(), QStringList({notSent, notSent, notSent, notSent, notSent}));

    module.reset();
    QCOMPARE(ip(QStringLiteral("addr del 172.20.21.22/32 dev lo")), QString());
}

void FixedAddressTest::cutAndRestored()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    const LogCatcher log;
    const int descriptors = descriptorCount();

    QCOMPARE(network.cut(), QString());
    for (int i = 0; i < 50; ++i)
        module.setSnareStyle(1);
    QVERIFY(module.writeBinaryData(QByteArray("lost")) < 0);
    QVERIFY(!peer.hasPending());

    QCOMPARE(network.restore(), QString());
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    QCOMPARE(descriptorCount(), descriptors);
    QCOMPARE(log.warnings(), QStringList());
}

void FixedAddressTest::lossLosesOnlyWhatIsLost()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
    const QString noLoss = EngineNetwork::noLossReason();
    if (!noLoss.isEmpty())
        QSKIP(qPrintable(noLoss));
    QCOMPARE(network.loseDatagrams(30), QString());

    // Few enough for any socket's buffer.
    for (int i = 0; i < 200; ++i)
        module.writeBinaryData(QByteArray::number(i));
    QCOMPARE(network.loseNothing(), QString());
    QCOMPARE(module.writeBinaryData(QByteArray("end")), qint64(3));

    int arrived = 0;
    int last = -1;
    QByteArray datagram = peer.next();
    while (!datagram.isNull() && datagram != "end") {
        QVERIFY2(datagram.toInt() > last, datagram.constData());
        last = datagram.toInt();
        ++arrived;
        datagram = peer.next();
    }
    QCOMPARE(datagram, QByteArray("end"));
    // Some 140 of them; the bounds are farther off than chance goes.
    QVERIFY2(arrived > 90 && arrived < 185, qPrintable(QString::number(arrived)));
}

int main(int argc, char *argv[])
{
    return runInPrivateNetwork<FixedAddressTest>(argc, argv);
}

#include "tst_fixedaddress.moc"
