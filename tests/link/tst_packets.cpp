// The bytes of packets as they are sent.

#include "link/midipacket.h"
#include "link/nrpn.h"
#include "link/rawpacket.h"
#include "link/tag.h"
#include "support/datagram.h"
#include "support/hex.h"
#include "support/logcatcher.h"

#include <QTest>

using namespace testsupport;

namespace {

MIDI_DATA midiEvent(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2)
{
    return {codeIndex, status, data1, data2};
}

} // namespace

class PacketsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshPacket_data();
    void freshPacket();
    void eventsAtTheirPositions();
    void eventBeyondTheCount_data();
    void eventBeyondTheCount();
    void negativePositionIsIgnored();
    void packetIsAValue();
    void dumpedText();
    void statusByte_data();
    void statusByte();
    void threeEvents();
    void fourEvents();
    void singleEvent();
    void rawPacketLayout();
    void tagsAreTwoLetters();
};

void PacketsTest::freshPacket_data()
{
    QTest::addColumn<int>("header");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("no event") << 0x494D << 0 << datagram("IM 0000");
    QTest::newRow("one event") << 0x494D << 1 << datagram("IM 0001 00000000");
    QTest::newRow("parameter") << 0x494D << 3 << datagram("IM 0003 00000000 00000000 00000000");
    QTest::newRow("power switch") << 0x5057 << 2 << datagram("PW 0002 00000000 00000000");
    QTest::newRow("count above a byte") << 0x494D << 258 << datagram("IM 0102") + QByteArray(258 * 4, '\0');
    QTest::newRow("largest count") << 0xFFFF << 65535 << hex("ffffffff") + QByteArray(65535 * 4, '\0');
}

void PacketsTest::freshPacket()
{
    QFETCH(int, header);
    QFETCH(int, count);
    QFETCH(QByteArray, bytes);

    QCOMPARE(MIDI_PACKET(quint16(header), quint16(count)).bytes(), bytes);
}

void PacketsTest::eventsAtTheirPositions()
{
    MIDI_PACKET packet(0x494D, 3);
    packet.setData(2, midiEvent(0x0B, 0xB9, 0x06, 0x3F));
    packet.setData(0, midiEvent(0x0B, 0xB9, 0x63, 0x38));
    QCOMPARE(packet.bytes(), datagram("IM 0003 0bb96338 00000000 0bb9063f"));
    packet.setData(1, midiEvent(0x0B, 0xB9, 0x62, 0x08));
    QCOMPARE(packet.bytes(), datagram("IM 0003 0bb96338 0bb96208 0bb9063f"));
    packet.setData(1, midiEvent(0xFF, 0x80, 0x00, 0x7F));
    QCOMPARE(packet.bytes(), datagram("IM 0003 0bb96338 ff80007f 0bb9063f"));
}

void PacketsTest::eventBeyondTheCount_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("size");

    QTest::newRow("first of none") << 0 << 0 << 8;
    QTest::newRow("one past the end") << 3 << 3 << 20;
    QTest::newRow("far past the end") << 3 << 9 << 44;
}

void PacketsTest::eventBeyondTheCount()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(int, size);

    MIDI_PACKET packet(0x494D, quint16(count));
    const QByteArray fresh = packet.bytes();
    packet.setData(index, midiEvent(0x0B, 0xB9, 0x07, 0x64));
    QCOMPARE(packet.bytes().size(), size);
    QCOMPARE(packet.bytes().left(fresh.size()), fresh);
    QCOMPARE(packet.bytes().right(4), hex("0bb90764"));
}

void PacketsTest::negativePositionIsIgnored()
{
    MIDI_PACKET packet(0x494D, 1);
    packet.setData(-1, midiEvent(0x0B, 0xB9, 0x07, 0x64));
    QCOMPARE(packet.bytes(), datagram("IM 0001 00000000"));
}

void PacketsTest::packetIsAValue()
{
    MIDI_PACKET first(0x494D, 1);
    const MIDI_PACKET second = first;
    first.setData(0, midiEvent(1, 2, 3, 4));
    QCOMPARE(second.bytes(), datagram("IM 0001 00000000"));
    QCOMPARE(first.bytes(), datagram("IM 0001 01020304"));
}

void PacketsTest::dumpedText()
{
    MIDI_PACKET packet(0x494D, 1);
    packet.setData(0, midiEvent(0x0B, 0xB9, 0x07, 0xFE));
    const LogCatcher log;
    packet.dumpData();
    QCOMPARE(log.debugTexts(), QStringList{QStringLiteral("Midi Data: \"494d00010bb907fe\"")});
    QCOMPARE(log.lines().size(), 1);
}

void PacketsTest::statusByte_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("channel 0") << 0x00 << datagram("IM 0001 0bb00764");
    QTest::newRow("channel 9") << 0x09 << datagram("IM 0001 0bb90764");
    QTest::newRow("channel 15") << 0x0F << datagram("IM 0001 0bbf0764");
    QTest::newRow("not masked") << 0x10 << datagram("IM 0001 0bc00764");
    QTest::newRow("last before the wrap") << 0x4F << datagram("IM 0001 0bff0764");
    QTest::newRow("wrapped to zero") << 0x50 << datagram("IM 0001 0b000764");
    QTest::newRow("largest") << 0xFF << datagram("IM 0001 0baf0764");
}

void PacketsTest::statusByte()
{
    QFETCH(int, channel);
    QFETCH(QByteArray, bytes);

    QCOMPARE(zelta::singleEventPacket(zelta::controlChange(0x07, 0x64, quint8(channel))).bytes(), bytes);
}

void PacketsTest::threeEvents()
{
    QCOMPARE(zelta::nrpnPacket({0x38, 0x08}, quint8(0x3F), 9).bytes(),
             datagram("IM 0003 0bb96338 0bb96208 0bb9063f"));
    QCOMPARE(zelta::nrpnPacket({0xFF, 0x80}, quint8(0xC8), 0x50).bytes(),
             datagram("IM 0003 0b0063ff 0b006280 0b0006c8"));
}

void PacketsTest::fourEvents()
{
    QCOMPARE(zelta::nrpnPacket({0x37, 0x0F}, zelta::DataEntry{0x02, 0x05}, 9).bytes(),
             datagram("IM 0004 0bb96337 0bb9620f 0bb92605 0bb90602"));
}

void PacketsTest::singleEvent()
{
    QCOMPARE(zelta::singleEventPacket(midiEvent(0x09, 0x99, 0x26, 0x7F)).bytes(),
             datagram("IM 0001 0999267f"));
}

void PacketsTest::rawPacketLayout()
{
    QCOMPARE(sizeof(RAW_PACKET), size_t(6));
    QCOMPARE(offsetof(RAW_PACKET, kind), size_t(0));
    QCOMPARE(offsetof(RAW_PACKET, firstBigEndian), size_t(2));
    QCOMPARE(offsetof(RAW_PACKET, secondBigEndian), size_t(4));
}

void PacketsTest::tagsAreTwoLetters()
{
    QCOMPARE(zelta::tag('I', 'M'), quint16(0x494D));
    QCOMPARE(zelta::tag('S', 'W'), quint16(0x5357));
    QCOMPARE(zelta::tag('\xFF', '\x80'), quint16(0xFF80));
    QCOMPARE(zelta::midiPacketHeader, quint16(18765));
    QCOMPARE(zelta::powerPacketHeader, quint16(20567));
}

QTEST_GUILESS_MAIN(PacketsTest)
#include "tst_packets.moc"
