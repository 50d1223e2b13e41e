// The address of the engine, as ZELTACONNECT_ENGINE sets it. Values that fall back to the fixed address are
// only parsed here; tst_fixedaddress.cpp sends datagrams to it, in a private network.

#include "control/qconnectqmlplugin.h"
#include "link/engineaddress.h"
#include "simulator/soundengine.h"
#include "support/enginepeer.h"
#include "support/fakeping.h"
#include "support/logcatcher.h"
#include "support/signalrecorder.h"

#include <QTest>

using namespace testsupport;

namespace {

const char variable[] = "ZELTACONNECT_ENGINE";

} // namespace

class EngineAddressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_own = qgetenv(variable); }
    void cleanup() { qputenv(variable, m_own); }

    void readable_data();
    void readable();
    void unset();
    void unreadable_data();
    void unreadable();
    void datagramsGoToAddress();
    void datagramsGoToAddressAndPort();
    void addressIsReadOnce();
    void engineStartsAfterTheModule();
    void pingGoesToAddress();

private:
    QByteArray m_own;
};

void EngineAddressTest::readable_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");

    QTest::newRow("empty") << QByteArray("") << "172.20.21.22" << 19797;
    QTest::newRow("address") << QByteArray("127.20.21.101") << "127.20.21.101" << 19797;
    QTest::newRow("address and port") << QByteArray("127.20.21.101:1234") << "127.20.21.101" << 1234;
    QTest::newRow("lowest port") << QByteArray("127.20.21.101:1") << "127.20.21.101" << 1;
    QTest::newRow("highest port") << QByteArray("127.20.21.101:65535") << "127.20.21.101" << 65535;
    QTest::newRow("lowest unicast address") << QByteArray("1.0.0.0") << "1.0.0.0" << 19797;
    QTest::newRow("highest unicast address") << QByteArray("223.255.255.255") << "223.255.255.255" << 19797;
}

void EngineAddressTest::readable()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, host);
    QFETCH(int, port);

    qputenv(variable, value);
    const LogCatcher log;
    const zelta::EngineAddress address = zelta::engineAddress();
    QCOMPARE(address.host, QHostAddress(host));
    QCOMPARE(int(address.port), port);
    QCOMPARE(address.fromEnvironment, !value.isEmpty());
    QCOMPARE(log.lines().size(), 0);
}

void EngineAddressTest::unset()
{
    qunsetenv(variable);
    const LogCatcher log;
    const zelta::EngineAddress address = zelta::engineAddress();
    QCOMPARE(address.host, QHostAddress(QStringLiteral("172.20.21.22")));
    QCOMPARE(int(address.port), 19797);
    QVERIFY(!address.fromEnvironment);
    QCOMPARE(log.lines().size(), 0);
}

void EngineAddressTest::unreadable_data()
{
    QTest::addColumn<QByteArray>("value");

    for (const char *value : {"engine.local",
                              "127.20.21",
                              "127.1",
                              "2130706433",
                              "127.20.21.256",
                              "127.20.21.1.1",
                              "::1",
                              "127.20.21.1:",
                              "127.20.21.1:0",
                              "127.20.21.1:65536",
                              "127.20.21.1:-1",
                              "127.20.21.1:port",
                              "127.20.21.1:1:2",
                              ":19797",
                              " 127.20.21.1",
                              "127.20.21.1 ",
                              "127.20.21.1/8",
                              "0x7f.0.0.1",
                              ":",
                              ":+5",
                              " ",
                              "127.20.21.1:+5",
                              "127.20.21.1: 5",
                              "127.20.21.1:5 ",
                              "127.20.21.1:05",
                              "127.20.21.1:0x5",
                              "0.0.0.0",
                              "0.0.0.0:19797",
                              "0.255.255.255",
                              "224.0.0.0",
                              "224.0.0.1:19797",
                              "239.255.255.255",
                              "240.0.0.1",
                              "255.255.255.255",
                              "255.255.255.255:19797"}) {
        QTest::newRow(value) << QByteArray(value);
    }
}

void EngineAddressTest::unreadable()
{
    QFETCH(QByteArray, value);

    qputenv(variable, value);
    const LogCatcher log;
    const zelta::EngineAddress address = zelta::engineAddress();
    QCOMPARE(address.host, QHostAddress(QStringLiteral("172.20.21.22")));
    QCOMPARE(int(address.port), 19797);
    QVERIFY(!address.fromEnvironment);
    const QString warning =
        QStringLiteral("ZELTACONNECT_ENGINE is \"%1\", which is not ADDRESS or ADDRESS:PORT "
                       "(IPv4); using \"172.20.21.22\"");
    QCOMPARE(log.warnings(), QStringList{warning.arg(QString::fromLatin1(value))});
    QCOMPARE(log.lines().size(), 1);
}

void EngineAddressTest::datagramsGoToAddress()
{
    EnginePeer peer(QHostAddress(QStringLiteral("127.20.21.101")));
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    QConnectQmlPlugin module;
    QVERIFY(peer.connectTo(&module));
}

void EngineAddressTest::datagramsGoToAddressAndPort()
{
    EnginePeer usual(QHostAddress(QStringLiteral("127.20.21.101")));
    EnginePeer other(QHostAddress(QStringLiteral("127.20.21.101")), 20797);
    QVERIFY2(usual.isOpen(), qPrintable(usual.errorString()));
    QVERIFY2(other.isOpen(), qPrintable(other.errorString()));
    qputenv(variable, "127.20.21.101:20797");
    const LogCatcher log;
    QConnectQmlPlugin module;
    QVERIFY(other.connectTo(&module));
    module.setLedEnabled(3, true);
    QCOMPARE(other.next().size(), 6);
    QVERIFY(!usual.hasPending());
    QVERIFY(other.settle(&module));
}

void EngineAddressTest::addressIsReadOnce()
{
    EnginePeer first(QHostAddress(QStringLiteral("127.20.21.101")));
    EnginePeer second(QHostAddress(QStringLiteral("127.20.21.101")), 20797);
    QVERIFY2(first.isOpen(), qPrintable(first.errorString()));
    QVERIFY2(second.isOpen(), qPrintable(second.errorString()));
    QConnectQmlPlugin module;
    qputenv(variable, "127.20.21.101:20797");
    QVERIFY(first.connectTo(&module));
    QVERIFY(!second.hasPending());
}

// The module must not bind the address, because the engine binds it later.
void EngineAddressTest::engineStartsAfterTheModule()
{
    const LogCatcher log;
    QConnectQmlPlugin module;
    const SignalRecorder recorder(&module);
    module.setMasterOutLevel(101);

    SoundEngine engine;
    QVERIFY2(engine.listen(QHostAddress(QStringLiteral("127.20.21.101"))), qPrintable(engine.errorString()));
    module.setMasterOutLevel(102);
    QTRY_COMPARE_WITH_TIMEOUT(engine.parameter(0x38, 0x07), 102, patienceMs);
    QVERIFY2(engine.strike(38, 100), qPrintable(engine.sendProblem()));
    QTRY_COMPARE_WITH_TIMEOUT(recorder.count("noteChanged"), 1, patienceMs);
    QCOMPARE(log.warnings(), QStringList());
}

void EngineAddressTest::pingGoesToAddress()
{
    const EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const FakePing ping({QStringLiteral("1 packets transmitted, 1 packets received, 0% packet loss\n")});
    qputenv(variable, "127.20.21.101:20797");
    const QConnectQmlPlugin module;
    // One call, or several if the machine is so busy that ping takes more than a second.
    QStringList calls = ping.calls();
    calls.removeDuplicates();
    QCOMPARE(calls, QStringList{QStringLiteral("-c 1 127.20.21.101")});
}

QTEST_MAIN(EngineAddressTest)
#include "tst_engineaddress.moc"
