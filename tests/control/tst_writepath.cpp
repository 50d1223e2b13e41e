// The four write functions: each call sends its bytes in one datagram; only raw records are logged.

#include "link/midipacket.h"
#include "link/rawpacket.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/texts.h"
#include "transfer/datapacket.h"

#include <QTest>

#include <cstring>

using namespace testsupport;

namespace {

RAW_PACKET record(const QByteArray &bytes)
{
    RAW_PACKET packet{};
    std::memcpy(&packet, bytes.constData(), sizeof(packet));
    return packet;
}

} // namespace

class WritePathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parameterPacket();
    void packetLongerThanItsCount();
    void bytes_data();
    void bytes();
    void tooLarge();
    void dataPacket();
    void rawRecord_data();
    void rawRecord();
    void ledSwitch();
    void oneDatagramPerCall();
    void longSysEx();
};

void WritePathTest::parameterPacket()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    MIDI_PACKET packet(0x494D, 3);
    packet.setData(0, {0x0B, 0xB9, 0x63, 0x38});
    packet.setData(1, {0x0B, 0xB9, 0x62, 0x08});
    packet.setData(2, {0x0B, 0xB9, 0x06, 0x3F});
    QCOMPARE(engine.module.writeMidiData(packet), qint64(16));
    QCOMPARE(engine.peer.next(), datagram("IM 0003 0bb96338 0bb96208 0bb9063f"));
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
    QCOMPARE(log.lines().size(), 0);
    QCOMPARE(engine.recorder.texts(), QStringList());
}

void WritePathTest::packetLongerThanItsCount()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    MIDI_PACKET packet(0x494D, 1);
    packet.setData(0, {0x0B, 0xB9, 0x07, 0x01});
    packet.setData(1, {0x0B, 0xB9, 0x07, 0x02});
    QCOMPARE(engine.module.writeMidiData(packet), qint64(12));
    QCOMPARE(engine.peer.next(), datagram("IM 0001 0bb90701 0bb90702"));
}

void WritePathTest::bytes_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {0, 1, 4, 6, 16, 1472, 1473, 65507})
        QTest::addRow("%d", size) << size;
}

void WritePathTest::bytes()
{
    QFETCH(int, size);

    QByteArray data(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        data[i] = char(i * 11);
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QCOMPARE(engine.module.writeBinaryData(data), qint64(size));
    const QByteArray datagram = engine.peer.next();
    QVERIFY(!datagram.isNull());
    QCOMPARE(datagram, data);
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
    QCOMPARE(log.lines().size(), 0);
}

void WritePathTest::tooLarge()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QCOMPARE(engine.module.writeBinaryData(QByteArray(65508, 'x')), qint64(-1));
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
    QCOMPARE(log.lines().size(), 0);
}

void WritePathTest::dataPacket()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QCOMPARE(engine.module.writeBinaryData(DATA_PACKET(0x4142, 0x4344)), qint64(4));
    QCOMPARE(engine.peer.next(), datagram("AB 4344"));
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
    QCOMPARE(log.lines().size(), 0);
}

void WritePathTest::rawRecord_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("line");

    QTest::newRow("LED 3 on") << datagram("LD 0003 0001") << "writeRawData:  LD";
    QTest::newRow("no zero byte") << datagram("LD 4142 4344") << "writeRawData:  LDABCD";
    QTest::newRow("zero byte last") << datagram("LD 4142 4300") << "writeRawData:  LDABC";
    QTest::newRow("zero byte first") << datagram("0044 4142 4344") << "writeRawData:  ";
    QTest::newRow("all zero") << datagram("0000 0000 0000") << "writeRawData:  ";
}

void WritePathTest::rawRecord()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, line);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QCOMPARE(engine.module.writeRawData(record(bytes)), qint64(6));
    QCOMPARE(engine.peer.next(), bytes);
    QCOMPARE(log.debugTexts(), QStringList{line});
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void WritePathTest::ledSwitch()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    engine.module.setLedEnabled(3, true);
    QCOMPARE(engine.peer.next(), datagram("LD 0003 0001"));
    engine.module.setLedEnabled(258, false);
    QCOMPARE(engine.peer.next(), datagram("LD 0102 0000"));
    QCOMPARE(log.debugTexts(), QStringList({QStringLiteral("writeRawData:  LD"),
                                            QStringLiteral("writeRawData:  LD\u0001\u0002")}));
}

// A slider that moves through fifty positions sends fifty packets.
void WritePathTest::oneDatagramPerCall()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    for (int i = 0; i < 50; ++i)
        engine.module.setXFadeBalance(quint8(i));
    for (int i = 0; i < 50; ++i) {
        QByteArray expected = datagram("IM 0003 0bb96337 0bb96205 0bb90600");
        expected[15] = char(i);
        QCOMPARE(engine.peer.next(), expected);
    }
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void WritePathTest::longSysEx()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    QList<int> values;
    for (int i = 0; i < 30000; ++i)
        values += 0x55;
    engine.module.sendSysEx(values);
    const QByteArray sent = engine.peer.next();
    // The 30002 bytes of the message need 10001 events of three bytes.
    QCOMPARE(sent.left(12), datagram("IM 2711 04f05555 04555555"));
    QCOMPARE(sent.size(), 4 + 4 * 10001);
    QCOMPARE(sent.right(8), datagram("04555555 0655f700"));
}

QTEST_MAIN(WritePathTest)
#include "tst_writepath.moc"
