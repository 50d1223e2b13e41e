// The module with the fixed address of its engine, 172.20.21.22, in a network that exists only in this
// process.

#include "link/rawpacket.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/fakeping.h"
#include "support/logcatcher.h"
#include "support/networknamespace.h"
#include "support/privatenetworktest.h"
#include "support/processresources.h"
#include "support/texts.h"
#include "transfer/datapacket.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using namespace testsupport;

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";

// Longer than the system waits between two requests for a hardware address.
constexpr int resolutionMs = 2000;

const QHostAddress &engineHost()
{
    static const QHostAddress host(QStringLiteral("172.20.21.22"));
    return host;
}

// Gives this host the address of the engine while the object exists.
struct HostHasEngineAddress
{
    HostHasEngineAddress() { QCOMPARE(ip(QStringLiteral("addr add 172.20.21.22/32 dev lo")), QString()); }
    ~HostHasEngineAddress() { QCOMPARE(ip(QStringLiteral("addr del 172.20.21.22/32 dev lo")), QString()); }
    Q_DISABLE_COPY(HostHasEngineAddress)
};

QStringList notHandled(const LogCatcher &log)
{
    return log.debugTexts("zeltaconnect.link").filter(QRegularExpression(QStringLiteral("^not handled")));
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
    void unreadableAddressIsBoundAsTheFixedOne();
    void addressOfTheEnvironmentIsNotBound();
    void fullSendBuffer();
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
    // One call, or several if the machine is so busy that ping takes more than a second.
    QStringList calls = ping.calls();
    calls.removeDuplicates();
    QCOMPARE(calls, texts({"-c 1 172.20.21.22"}));

    module.setSnareStyle(1);
    QCOMPARE(peer.next(), datagram("IM 0003 0bb96337 0bb96204 0bb90601"));
    QCOMPARE(peer.moduleAddress(), QHostAddress(QStringLiteral("172.20.21.1")));
    module.setLedEnabled(3, true);
    QCOMPARE(peer.next(), datagram("LD 0003 0001"));
    module.sendSysEx({1});
    QCOMPARE(peer.next(), datagram("IM 0001 06f001f7"));

    const SignalRecorder recorder(&module);
    QVERIFY(peer.send(datagram("TM AC 00780000")));
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
        QSKIP("no ping, or one with another summary (put tools/bin first in PATH)");

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
    // Five attempts, each with a pause of a second and a wait of at most a second.
    QVERIFY2(elapsed >= 5000, qPrintable(QString::number(elapsed)));
    QVERIFY2(systemPing.calls().size() <= 5, qPrintable(QString::number(systemPing.calls().size())));
    QCOMPARE(network.restore(), QString());
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
}

// When the fixed address is an address of this host, the bind succeeds and byte arrays use the stream-style
// write. Qt refuses this write for a socket that is not connected. The six-byte record is still sent, to the
// module itself.
void FixedAddressTest::successfulBind()
{
    const HostHasEngineAddress address;
    LogCatcher log;
    QConnectQmlPlugin module;
    const SignalRecorder recorder(&module);

    // The module receives at the address, which shows that it has bound it.
    EnginePeer sender(engineHost(), 0);
    QVERIFY2(sender.isOpen(), qPrintable(sender.errorString()));
    QVERIFY(sender.sendTo(datagram("TM AC 00780000"), engineHost(), EnginePeer::enginePort));
    QTRY_COMPARE_WITH_TIMEOUT(recorder.texts(), texts({"tempoChanged()"}), patienceMs);

    log.clear();
    module.setSnareStyle(1);
    module.requestOutsUpdate();
    module.sendSysEx({1, 2, 3});
    QVERIFY(module.writeBinaryData(QByteArray("bytes")) < 0);
    QVERIFY(module.writeBinaryData(DATA_PACKET(0x4453, 0x5442)) < 0);
    module.setLedEnabled(3, true);
    QTRY_COMPARE_WITH_TIMEOUT(notHandled(log), texts({"not handled  \"4c4400030001\" ( 6 )"}), patienceMs);
    module.setLedEnabled(4, false);
    QTRY_COMPARE_WITH_TIMEOUT(
        notHandled(log),
        texts({"not handled  \"4c4400030001\" ( 6 )", "not handled  \"4c4400040000\" ( 6 )"}), patienceMs);
    // One warning for each of the five stream-style writes.
    const QString notSent = QStringLiteral("QIODevice::write (QUdpSocket): device not open");
    QCOMPARE(log.warnings(), QStringList({notSent, notSent, notSent, notSent, notSent}));
}

void FixedAddressTest::unreadableAddressIsBoundAsTheFixedOne()
{
    const HostHasEngineAddress address;
    qputenv(variable, "0.0.0.0");
    const LogCatcher log;
    const QConnectQmlPlugin module;
    QVERIFY(!EnginePeer(engineHost()).isOpen());
    QCOMPARE(log.warnings(),
             texts({"ZELTACONNECT_ENGINE is \"0.0.0.0\", which is not ADDRESS or ADDRESS:PORT (IPv4); using "
                    "\"172.20.21.22\""}));
}

void FixedAddressTest::addressOfTheEnvironmentIsNotBound()
{
    const HostHasEngineAddress address;
    qputenv(variable, "172.20.21.22");
    const LogCatcher log;
    QConnectQmlPlugin module;
    EnginePeer peer(engineHost());
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    QCOMPARE(log.warnings(), QStringList());
}

// Datagrams fill the send buffer while the hardware address of the engine is not known. A send then fails
// immediately; a blocking send would wait until the address resolution fails.
void FixedAddressTest::fullSendBuffer()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    const LogCatcher log;

    QCOMPARE(network.silenceEngine(), QString());
    const QByteArray large(60000, 'x');
    const RAW_PACKET record{0x444C, 0, 0};
    QTRY_VERIFY_WITH_TIMEOUT(module.writeBinaryData(large) < 0, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(module.writeBinaryData(large) < 0 && module.writeRawData(record) < 0,
                             patienceMs);

    QCOMPARE(network.unsilenceEngine(), QString());
    // The system drops the waiting datagrams when it gives up, so the last one may need a second try.
    const auto lastOneArrives = [&] {
        module.writeBinaryData(QByteArray("last"));
        QByteArray datagram = peer.next(resolutionMs);
        while (!datagram.isNull() && datagram != "last")
            datagram = peer.next(resolutionMs);
        return datagram == "last";
    };
    QTRY_VERIFY_WITH_TIMEOUT(lastOneArrives(), patienceMs);
    peer.discardPending();
    QVERIFY(peer.settle(&module));
    QCOMPARE(log.warnings(), QStringList());
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

    // The buffer of any socket holds this number.
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
    // About 140 are expected. It is improbable that random variation exceeds the bounds.
    QVERIFY2(arrived > 90 && arrived < 185, qPrintable(QString::number(arrived)));
}

int main(int argc, char *argv[])
{
    return runInPrivateNetwork<FixedAddressTest>(argc, argv);
}

#include "tst_fixedaddress.moc"
