#include "tag.h"

#include "support/datagram.h"
#include "transfer/datapacket.h"

#include <QTest>
#include <QTextCodec>

using testsupport::datagram;

class DataPacketTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forms_data();
    void forms();
    void nameInALatin1Locale();
    void checksum_data();
    void checksum();
};

using Build = DATA_PACKET (*)();
Q_DECLARE_METATYPE(Build)

void DataPacketTest::forms_data()
{
    QTest::addColumn<Build>("build");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char *name, Build build, const char *expected) {
        QTest::newRow(name) << build << QByteArray(expected);
    };
    row(
        "query", [] { return DATA_PACKET(Tag("VN"), 0); }, "VN 0000");
    row(
        "start of a whole file",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("SB"));
            packet.setStart(0x01020304);
            return packet;
        },
        "DS SB 01020304");
    row(
        "start, largest size",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("TB"));
            packet.setStart(0xFFFFFFFF);
            return packet;
        },
        "DS TB ffffffff");
    row(
        "start with slot and name",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IW"));
            packet.setStart(1025);
            packet.setSlot(3);
            packet.setFileName(QStringLiteral("kick.wav"));
            return packet;
        },
        "DS IW 00000401 0003 6b69636b2e77617600");
    row(
        "fields in the order of the calls",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IS"));
            packet.setFileName(QStringLiteral("a"));
            packet.setSoundBankId(0x0102);
            packet.setStart(5);
            return packet;
        },
        "DS IS 6100 0102 00000005");
    row(
        "slot beyond 16 bits",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IS"));
            packet.setSlot(0x12345);
            return packet;
        },
        "DS IS 2345");
    row(
        "bank beyond 16 bits",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IS"));
            packet.setSoundBankId(0xFFFEDCBA);
            return packet;
        },
        "DS IS dcba");
    row(
        "empty name",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IS"));
            packet.setFileName(QString());
            return packet;
        },
        "DS IS 00");
    row(
        "name beyond ASCII",
        [] {
            DATA_PACKET packet(Tag("DS"), Tag("IS"));
            packet.setFileName(QStringLiteral("B\u00e4\u266a"));
            return packet;
        },
        "DS IS 42c3a4e299aa00");
    row(
        "data",
        [] {
            DATA_PACKET packet(Tag("DC"), Tag("SB"));
            packet.setData(0x01020304, QByteArray("\xAA\xBB\xCC\xDD", 4));
            return packet;
        },
        "DC SB 01020304 0002 aabbccdd");
    row(
        "data without a chunk",
        [] {
            DATA_PACKET packet(Tag("DC"), Tag("BF"));
            packet.setData(7, QByteArray());
            return packet;
        },
        "DC BF 00000007 0000");
    row(
        "data over other fields",
        [] {
            DATA_PACKET packet(Tag("DC"), Tag("BF"));
            packet.setStart(0xFFFFFFFF);
            packet.setFileName(QStringLiteral("longer than the header"));
            packet.setData(1, QByteArray("\x11\x22", 2));
            return packet;
        },
        "DC BF 00000001 0001 1122");
    row(
        "end",
        [] {
            DATA_PACKET packet(Tag("DE"), Tag("TF"));
            packet.setEnd(0xFEDCBA98);
            return packet;
        },
        "DE TF fedcba98");
    row(
        "end over other fields",
        [] {
            DATA_PACKET packet(Tag("DE"), Tag("TF"));
            packet.setStart(0xFFFFFFFF);
            packet.setSlot(0xFFFF);
            packet.setEnd(2);
            return packet;
        },
        "DE TF 00000002");
}

void DataPacketTest::forms()
{
    QFETCH(const Build, build);
    QFETCH(const QByteArray, expected);
    QCOMPARE(build().bytes().toHex(), datagram(expected).toHex());
}

// Names are UTF-8 on the wire, whatever the encoding of the locale is.
void DataPacketTest::nameInALatin1Locale()
{
    QTextCodec *const previous = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    DATA_PACKET packet(Tag("DS"), Tag("IW"));
    packet.setFileName(QStringLiteral("\u00e4.wav"));
    QTextCodec::setCodecForLocale(previous);
    QCOMPARE(packet.bytes().toHex(), datagram("DS IW c3a42e77617600").toHex());
}

void DataPacketTest::checksum_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::addColumn<quint32>("sum");

    QTest::newRow("nothing") << QByteArray() << 0U;
    QTest::newRow("01 02 03, padded") << QByteArray("\x01\x02\x03\x00", 4) << 0x0402U;
    QTest::newRow("01 02 03, not padded") << QByteArray("\x01\x02\x03", 3) << 0x0402U;
    QTest::newRow("bytes above 7F") << QByteArray("\x80\xFF\xFF\x80", 4) << 0x1807FU;
    QTest::newRow("largest chunk of largest words") << QByteArray(1024, '\xFF') << 0x1FFFE00U;
}

void DataPacketTest::checksum()
{
    QFETCH(const QByteArray, chunk);
    QFETCH(const quint32, sum);
    QCOMPARE(zelta::chunkChecksum(chunk), sum);
}

QTEST_APPLESS_MAIN(DataPacketTest)
#include "tst_packet.moc"
