// One datagram: each of the three known forms, and all others.

#include "link/sockettransceiver.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/texts.h"

#include <QTest>

using namespace testsupport;

Q_DECLARE_METATYPE(QList<QByteArray>)

namespace {

QString notHandled(const QByteArray &bytes)
{
    return QStringLiteral("not handled  \"%1\" ( %2 )")
        .arg(QString::fromLatin1(bytes.toHex()))
        .arg(bytes.size());
}

QByteArray numbered(int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i * 7 + 1);
    return bytes;
}

} // namespace

class ReceiveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linkSignals_data();
    void linkSignals();
    void notUnderstood_data();
    void notUnderstood();
    void badBetweenGood();
    void everySmallSize();
    void largestDatagram();
    void senderDoesNotMatter();
};

void ReceiveTest::linkSignals_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QString>("signal");

    QTest::newRow("event") << datagram("IM AC b90b2a06") << "sockUdpPacketArrived(18765, 47371, 10758)";
    QTest::newRow("event, all ones") << datagram("ffff AC ffffffff")
                                     << "sockUdpPacketArrived(65535, 65535, 65535)";
    QTest::newRow("event, all zero") << datagram("0000 AC 00000000") << "sockUdpPacketArrived(0, 0, 0)";
    QTest::newRow("event, kind with the tag of a meter")
        << datagram("CR AC 00010002") << "sockUdpPacketArrived(17234, 1, 2)";
    QTest::newRow("compressor") << datagram("CR 0001 0102 0203 0304 0405 0506 0607")
                                << "sockCompPacketArrived(1, 258, 515, 772, 1029, 1286, 1543)";
    QTest::newRow("compressor, highest words") << datagram("CR ffff 8000 ffff 8000 ffff 8000 ffff")
                                               << "sockCompPacketArrived(65535, 32768, 65535, 32768, 65535, "
                                                  "32768, 65535)";
    QTest::newRow("outputs")
        << datagram("DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000a 000b 000c 000d "
                    "000e 000f 0010 0011 ff12")
        << "sockOutLevelPacketArrived(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, "
           "16, 17, 65298)";
}

void ReceiveTest::linkSignals()
{
    QFETCH(QByteArray, sent);
    QFETCH(QString, signal);

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    SocketTransceiver link;
    QCOMPARE(link.writeToSocket(QByteArray("hello"), link.engine().host, link.engine().port), qint64(5));
    QCOMPARE(peer.next(), QByteArray("hello"));

    SignalRecorder recorder(&link);
    QVERIFY(peer.send(sent));
    const QByteArray fence = datagram("EE AC 00010002");
    QVERIFY(peer.send(fence));
    const QString fenceSignal = QStringLiteral("sockUdpPacketArrived(17733, 1, 2)");
    QTRY_VERIFY_WITH_TIMEOUT(recorder.texts().contains(fenceSignal), patienceMs);
    QStringList fired = recorder.texts();
    fired.removeAll(QStringLiteral("started()")); // the receive thread begins with the first datagram
    QCOMPARE(fired, (QStringList{signal, fenceSignal}));
}

void ReceiveTest::notUnderstood_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QString>("line");

    QTest::newRow("empty") << QByteArray("") << "not handled  \"\" ( 0 )";
    QTest::newRow("one byte") << hex("0a") << "not handled  \"0a\" ( 1 )";
    QTest::newRow("event cut short") << datagram("IM AC b90b2a") << "not handled  \"494d4143b90b2a\" ( 7 )";
    QTest::newRow("event with one byte more")
        << datagram("IM AC b90b2a06 00") << "not handled  \"494d4143b90b2a0600\" ( 9 )";
    QTest::newRow("event, tag AD") << datagram("IM AD b90b2a06") << "not handled  \"494d4144b90b2a06\" ( 8 )";
    QTest::newRow("event, tag in lower case")
        << datagram("IM 6163 b90b2a06") << "not handled  \"494d6163b90b2a06\" ( 8 )";
    QTest::newRow("event, tag in front")
        << datagram("AC IM b90b2a06") << "not handled  \"4143494db90b2a06\" ( 8 )";
    QTest::newRow("event size, tag CR")
        << datagram("CR 0000 00460046") << "not handled  \"4352000000460046\" ( 8 )";
    QTest::newRow("compressor size, tag DR") << datagram("DR 0000000000000000000000000001")
                                             << "not handled  \"44520000000000000000000000000001\" ( 16 )";
    QTest::newRow("compressor size, tag of an event")
        << datagram("IM AC 000000000000000000000000")
        << "not handled  \"494d4143000000000000000000000000\" ( 16 )";
    QTest::newRow("compressor cut short") << datagram("CR 00000000000000000000000000")
                                          << "not handled  \"435200000000000000000000000000\" ( 15 )";
    QTest::newRow("outputs size, tag CR")
        << datagram("CR") + QByteArray(36, '\0') << notHandled(datagram("CR") + QByteArray(36, '\0'));
    QTest::newRow("outputs cut short")
        << datagram("DR") + QByteArray(35, '\0') << notHandled(datagram("DR") + QByteArray(35, '\0'));
    QTest::newRow("outputs with one byte more")
        << datagram("DR") + QByteArray(37, '\0') << notHandled(datagram("DR") + QByteArray(37, '\0'));
    QTest::newRow("hex text in lower case") << hex("ABCDEF") << "not handled  \"abcdef\" ( 3 )";
}

void ReceiveTest::notUnderstood()
{
    QFETCH(QByteArray, sent);
    QFETCH(QString, line);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QVERIFY(engine.deliver({sent}));
    QCOMPARE(engine.recorder.texts(), QStringList());
    QCOMPARE(log.debugTexts(), QStringList{line});
    QCOMPARE(log.warnings(), QStringList());
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void ReceiveTest::badBetweenGood()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QVERIFY(engine.deliver({
        datagram("AB AC 00000001"),
        hex(""),
        datagram("AB AC 00000002"),
        datagram("AB AD 00000003"),
        datagram("AB AC 00000004"),
        datagram("AB AC 00000005 00"),
        datagram("AB AC 0000"),
        datagram("AB AC 00000006"),
    }));
    QCOMPARE(engine.recorder.texts(),
             texts({"udpPacketArrived(16706, 0, 1)", "udpPacketArrived(16706, 0, 2)",
                    "udpPacketArrived(16706, 0, 4)", "udpPacketArrived(16706, 0, 6)"}));
    QCOMPARE(log.debugTexts(),
             texts({"not handled  \"\" ( 0 )", "not handled  \"4142414400000003\" ( 8 )",
                    "not handled  \"414241430000000500\" ( 9 )", "not handled  \"414241430000\" ( 6 )"}));
}

void ReceiveTest::everySmallSize()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QList<QByteArray> datagrams;
    QStringList lines;
    for (int size = 0; size <= 64; ++size) {
        datagrams += numbered(size);
        lines += notHandled(numbered(size));
    }
    QVERIFY(engine.deliver(datagrams));
    QCOMPARE(log.debugTexts(), lines);
    QCOMPARE(engine.recorder.texts(), QStringList());
}

void ReceiveTest::largestDatagram()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QStringList lines;
    QList<QByteArray> datagrams;
    for (const int size : {1472, 1473, 9000, 65506, 65507, 1}) {
        datagrams += numbered(size);
        lines += notHandled(numbered(size));
    }
    QVERIFY(engine.deliver(datagrams));
    QCOMPARE(log.debugTexts(), lines);
    QVERIFY(engine.deliver({datagram("TM AC 00780000")}));
    QCOMPARE(engine.recorder.texts(), texts({"tempoChanged()"}));
}

void ReceiveTest::senderDoesNotMatter()
{
    const LogCatcher log;
    ConnectedModule engine;
    QVERIFY(engine.connected);
    EnginePeer other(engine.peer.moduleAddress(), 0);
    QVERIFY2(other.isOpen(), qPrintable(other.errorString()));
    QVERIFY(other.sendTo(datagram("TM AC 00780000"), engine.peer.moduleAddress(), engine.peer.modulePort()));
    QVERIFY(engine.peer.settle(&engine.module));
    QCOMPARE(engine.recorder.texts(), texts({"tempoChanged()"}));
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
    QVERIFY(!other.hasPending());
}

QTEST_MAIN(ReceiveTest)
#include "tst_receive.moc"
