// Where the module sends, by the value of ZELTACONNECT_ENGINE. Values that fall back to the fixed address are
// only read here; that datagrams really go there is seen in a private network, in tst_fixedaddress.cpp.

#include "control/qconnectqmlplugin.h"
#include "link/engineaddress.h"
#include "support/enginepeer.h"
#include "support/fakeping.h"
#include "support/logcatcher.h"

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
    QTest::newRow("the fixed one") << QByteArray("172.20.21.22:19797") << "172.20.21.22" << 19797;
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
    QCOMPARE(log.lines().size(), 0);
}

void EngineAddressTest::unset()
{
    qunsetenv(variable);
    const LogCatcher log;
    const zelta::EngineAddress address = zelta::engineAddress();
    QCOMPARE(address.host, QHostAddress(QStringLiteral("172.20.21.22")));
    QCOMPARE(int(address.port), 19797);
    QCOMPARE(log.lines().size(), 0);
}

void EngineAddressTest::unreadable_data()
{
    QTest::addColumn<QByteArray>("value");

    for (const char *value :
         {"engine.local", "127.20.21", "127.1", "2130706433", "127.20.21.256", "127.20.21.1.1", "::1",
          "127.20.21.1:", "127.20.21.1:0", "127.20.21.1:65536", "127.20.21.1:-1", "127.20.21.1:port",
          "127.20.21.1:1:2", ":19797", " 127.20.21.1", "127.20.21.1 ", "127.20.21.1/8", "0x7f.0.0.1"}) {
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

void EngineAddressTest::pingGoesToAddress()
{
    const EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const FakePing ping({QStringLiteral("1 packets transmitted, 1 packets received, 0% packet loss\n")});
    qputenv(variable, "127.20.21.101:20797");
    const QConnectQmlPlugin module;
    // Once, or more often when this machine is so busy that it takes more than a second.
    QStringList calls = ping.calls();
    calls.removeDuplicates();
    QCOMPARE(calls, QStringList{QStringLiteral("-c 1 127.20.21.101")});
}

QTEST_MAIN(EngineAddressTest)
#include "tst_engineaddress.moc"
