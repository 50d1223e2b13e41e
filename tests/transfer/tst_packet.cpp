#include "transfer/datapacket.h"

#include <QTest>

class tst_DataPacket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forms_data();
    void forms();
    void checksum_data();
    void checksum();
};

using Build = DATA_PACKET (*)();
Q_DECLARE_METATYPE(Build)

void tst_DataPacket::forms_data()
{
    QTest::addColumn<Build>("build");
    QTest::addColumn<QByteArray>("hex");

    const auto row = [](const char *name, Build build, const char *hex) {
        QTest::newRow(name) << build << QByteArray(hex);
    };
    row(
        "query", [] { return DATA_PACKET(0x564E, 0); }, "564e 0000");
    row(
        "start of a whole file",
        [] {
            DATA_PACKET packet(0x4453, 0x5342);
            packet.setStart(0x01020304);
            return packet;
        },
        "4453 5342 01020304");
    row(
        "start, largest size",
        [] {
            DATA_PACKET packet(0x4453, 0x5442);
            packet.setStart(0xFFFFFFFF);
            return packet;
        },
        "4453 5442 ffffffff");
    row(
        "start with slot and name",
        [] {
            DATA_PACKET packet(0x4453, 0x4957);
            packet.setStart(1025);
            packet.setSlot(3);
            packet.setFileName(QStringLiteral("kick.wav"));
            return packet;
        },
        "4453 4957 00000401 0003 6b69636b2e77617600");
    row(
        "fields in the order of the calls",
        [] {
            DATA_PACKET packet(0x4453, 0x4953);
            packet.setFileName(QStringLiteral("a"));
            packet.setSoundBankId(0x0102);
            packet.setStart(5);
            return packet;
        },
        "4453 4953 6100 0102 00000005");
    row(
        "slot beyond 16 bits",
        [] {
            DATA_PACKET packet(0x4453, 0x4953);
            packet.setSlot(0x12345);
            return packet;
        },
        "4453 4953 2345");
    row(
        "bank beyond 16 bits",
        [] {
            DATA_PACKET packet(0x4453, 0x4953);
            packet.setSoundBankId(0xFFFEDCBA);
            return packet;
        },
        "4453 4953 dcba");
    row(
        "empty name",
        [] {
            DATA_PACKET packet(0x4453, 0x4953);
            packet.setFileName(QString());
            return packet;
        },
        "4453 4953 00");
    row(
        "name beyond ASCII",
        [] {
            DATA_PACKET packet(0x4453, 0x4953);
            packet.setFileName(QStringLiteral("B\u00e4\u266a"));
            return packet;
        },
        "4453 4953 42c3a4e299aa00");
    row(
        "data",
        [] {
            DATA_PACKET packet(0x4443, 0x5342);
            packet.setData(0x01020304, QByteArray("\xAA\xBB\xCC\xDD", 4));
            return packet;
        },
        "4443 5342 01020304 0002 aabbccdd");
    row(
        "data without a chunk",
        [] {
            DATA_PACKET packet(0x4443, 0x4246);
            packet.setData(7, QByteArray());
            return packet;
        },
        "4443 4246 00000007 0000");
    row(
        "data over other fields",
        [] {
            DATA_PACKET packet(0x4443, 0x4246);
            packet.setStart(0xFFFFFFFF);
            packet.setFileName(QStringLiteral("longer than the header"));
            packet.setData(1, QByteArray("\x11\x22", 2));
            return packet;
        },
        "4443 4246 00000001 0001 1122");
    row(
        "end",
        [] {
            DATA_PACKET packet(0x4445, 0x5446);
            packet.setEnd(0xFEDCBA98);
            return packet;
        },
        "4445 5446 fedcba98");
    row(
        "end over other fields",
        [] {
            DATA_PACKET packet(0x4445, 0x5446);
            packet.setStart(0xFFFFFFFF);
            packet.setSlot(0xFFFF);
            packet.setEnd(2);
            return packet;
        },
        "4445 5446 00000002");
}

void tst_DataPacket::forms()
{
    QFETCH(const Build, build);
    QFETCH(const QByteArray, hex);
    QCOMPARE(build().bytes().toHex(), QByteArray(hex).replace(' ', ""));
}

void tst_DataPacket::checksum_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::addColumn<quint32>("sum");

    QTest::newRow("nothing") << QByteArray() << 0U;
    QTest::newRow("01 02 03, padded") << QByteArray("\x01\x02\x03\x00", 4) << 0x0402U;
    QTest::newRow("01 02 03, not padded") << QByteArray("\x01\x02\x03", 3) << 0x0402U;
    QTest::newRow("bytes above 7F") << QByteArray("\x80\xFF\xFF\x80", 4) << 0x1807FU;
    QTest::newRow("largest chunk of largest words") << QByteArray(1024, '\xFF') << 0x1FFFE00U;
}

void tst_DataPacket::checksum()
{
    QFETCH(const QByteArray, chunk);
    QFETCH(const quint32, sum);
    QCOMPARE(zelta::chunkChecksum(chunk), sum);
}

QTEST_APPLESS_MAIN(tst_DataPacket)
#include "tst_packet.moc"
