// Reading captures: link types and formats, and files that are refused.
#include "recording/capturefile.h"
#include "simulator/recording.h"
#include "support/datagram.h"
#include "support/hex.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <pcap/pcap.h>

using simulated::Recording;
using testsupport::datagram;
using testsupport::hex;

namespace {

constexpr qint64 nsPerMs = 1000000;

// Master out level 100 to the engine, and a strike of the snare from it.
QByteArray setting()
{
    return datagram("IM 0003 0BB96338 0BB96207 0BB90664");
}

QByteArray strike()
{
    return datagram("IM AC 9909 6426");
}

QByteArray ethernet(const char *types, const QByteArray &packet)
{
    return hex("020000000001 020000000002") + hex(types) + packet;
}

} // namespace

class ReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsALinkType_data();
    void readsALinkType();
    void readsPcapng();
    void readsMicroseconds();
    void readsAFrame_data();
    void readsAFrame();
    void skipsOtherPackets_data();
    void skipsOtherPackets();
    void keepsTheGaps();
    void leavesOutStepsOfTheClock();
    void readsAnotherPort();
    void refusesAPacket_data();
    void refusesAPacket();
    void refusesAFile_data();
    void refusesAFile();
    void refusesEveryTruncation();
    void refusesASecondEngine();
    void isEmptyAfterAFailure();

private:
    QString path(const char *name) const { return m_directory.filePath(QLatin1String(name)); }

    QTemporaryDir m_directory;
};

void ReadingTest::readsALinkType_data()
{
    QTest::addColumn<int>("linkType");
    QTest::newRow("Ethernet") << DLT_EN10MB;
    QTest::newRow("Linux cooked, version 1") << DLT_LINUX_SLL;
    QTest::newRow("Linux cooked, version 2") << DLT_LINUX_SLL2;
    QTest::newRow("raw IP") << DLT_RAW;
    QTest::newRow("raw IPv4") << DLT_IPV4;
    QTest::newRow("BSD loopback") << DLT_NULL;
    QTest::newRow("OpenBSD loopback") << DLT_LOOP;
}

void ReadingTest::readsALinkType()
{
    QFETCH(int, linkType);
    const QString file = path("linktype.pcap");
    CaptureFile capture(file, linkType);
    capture.addDatagram(false, setting(), 5 * nsPerMs);
    capture.addDatagram(true, strike(), 12 * nsPerMs + 345);
    capture.addDatagram(true, {}, 13 * nsPerMs);
    QVERIFY(capture.finish());

    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QCOMPARE(recording.size(), 3);
    QCOMPARE(recording.countFromEngine(), 2);
    QCOMPARE(recording.countFromModule(), 1);
    QVERIFY(!recording.isFromEngine(0));
    QVERIFY(recording.isFromEngine(1));
    QCOMPARE(recording.datagram(0), setting());
    QCOMPARE(recording.datagram(1), strike());
    QCOMPARE(recording.datagram(2), QByteArray());
    QCOMPARE(recording.time(0), qint64(0));
    QCOMPARE(recording.time(1), 7 * nsPerMs + 345);
    QCOMPARE(recording.duration(), 8 * nsPerMs);
}

// Section header, interface description (raw IP, nanoseconds) and one packet, all little-endian.
void ReadingTest::readsPcapng()
{
    const QByteArray packet = ipPacket(true, strike());
    QCOMPARE(packet.size(), 36);
    QFile file(path("next.pcapng"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(hex("0A0D0D0A 1C000000 4D3C2B1A 0100 0000 FFFFFFFFFFFFFFFF 1C000000"));
    file.write(hex("01000000 20000000 6500 0000 FFFF0000 0900 0100 09000000 0000 0000 20000000"));
    file.write(hex("06000000 44000000 00000000 00000000 40420F00 24000000 24000000") + packet +
               hex("44000000"));
    file.close();

    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file.fileName(), &problem), qPrintable(problem));
    QCOMPARE(recording.size(), 1);
    QCOMPARE(recording.datagram(0), strike());
}

// As tcpdump writes it: the classic format with microseconds.
void ReadingTest::readsMicroseconds()
{
    const QByteArray packet = ipPacket(true, strike());
    QFile file(path("micro.pcap"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(hex("D4C3B2A1 0200 0400 00000000 00000000 FFFF0000 65000000"));
    file.write(hex("01000000 20A10700 24000000 24000000") + packet);
    file.write(hex("03000000 05000000 24000000 24000000") + packet);
    file.close();

    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file.fileName(), &problem), qPrintable(problem));
    QCOMPARE(recording.size(), 2);
    QCOMPARE(recording.time(1), qint64(1500005000));
}

void ReadingTest::readsAFrame_data()
{
    QTest::addColumn<int>("linkType");
    QTest::addColumn<QByteArray>("frame");
    const QByteArray packet = ipPacket(true, strike());
    QTest::newRow("VLAN tag") << DLT_EN10MB << ethernet("8100 0005 0800", packet);
    QTest::newRow("provider's tag and VLAN tag")
        << DLT_EN10MB << ethernet("88A8 0001 8100 0005 0800", packet);
    QTest::newRow("two tags, old number") << DLT_EN10MB << ethernet("9100 0001 8100 0005 0800", packet);
    QTest::newRow("padding of the shortest frame")
        << DLT_EN10MB << ethernet("0800", packet) + QByteArray(10, '\0');
    QTest::newRow("Linux cooked, VLAN tag")
        << DLT_LINUX_SLL << hex("0000 0001 0006 0200000000010000 8100 0005 0800") + packet;
    QTest::newRow("loopback, other byte order") << DLT_NULL << hex("00000002") + packet;
    // Version and size of the header: 6 words, with four bytes of options.
    QByteArray options = packet;
    options.insert(20, hex("01010101"));
    options[0] = 0x46;
    QTest::newRow("IP options") << DLT_RAW << withWord(options, 2, quint16(options.size()));
    QTest::newRow("bytes after the datagram") << DLT_RAW << withWord(packet + hex("FFFF"), 2, 38);
    QTest::newRow("may not be fragmented") << DLT_RAW << withWord(packet, 6, 0x4000);
}

void ReadingTest::readsAFrame()
{
    QFETCH(int, linkType);
    QFETCH(QByteArray, frame);
    const QString file = path("frame.pcap");
    CaptureFile capture(file, linkType);
    capture.add(frame);
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QCOMPARE(recording.size(), 1);
    QCOMPARE(recording.datagram(0), strike());
}

void ReadingTest::skipsOtherPackets_data()
{
    QTest::addColumn<QByteArray>("frame");
    const QByteArray packet = ipPacket(true, strike());
    QTest::newRow("ARP") << ethernet("0806", QByteArray(28, '\0'));
    QTest::newRow("IPv6") << ethernet("86DD", QByteArray(60, '\x60'));
    QTest::newRow("TCP") << ethernet("0800", QByteArray(packet).replace(9, 1, "\x06"));
    QTest::newRow("other ports") << ethernet("0800", withWord(withWord(packet, 20, 53), 22, 53));
    QTest::newRow("fragment of another datagram")
        << ethernet("0800", withWord(withWord(withWord(packet, 20, 53), 22, 53), 6, 0x2000));
    QTest::newRow("last fragment") << ethernet("0800", withWord(packet, 6, 0x0010));
    QTest::newRow("version 5") << ethernet("0800", QByteArray(packet).replace(0, 1, "\x55"));
    QTest::newRow("frame that ends in its header") << hex("020000000001 02000000");
    QTest::newRow("no byte") << QByteArray();
}

void ReadingTest::skipsOtherPackets()
{
    QFETCH(QByteArray, frame);
    const QString file = path("other.pcap");
    Recording recording;
    QString problem;
    {
        CaptureFile capture(file, DLT_EN10MB);
        capture.add(frame);
        QVERIFY(capture.finish());
        QVERIFY(!recording.load(file, &problem));
        QVERIFY2(problem.contains(QStringLiteral("no UDP datagram with port 19797 in 1 packets")),
                 qPrintable(problem));
    }
    CaptureFile capture(file, DLT_EN10MB);
    capture.addDatagram(false, setting());
    capture.add(frame);
    capture.addDatagram(true, strike());
    QVERIFY(capture.finish());
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QCOMPARE(recording.size(), 2);
}

void ReadingTest::keepsTheGaps()
{
    const QString file = path("gaps.pcap");
    CaptureFile capture(file, DLT_RAW);
    for (const qint64 ms : {0, 10, 10, 5, 1000})
        capture.addDatagram(true, strike(), ms * nsPerMs);
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QVector<qint64> times;
    for (int i = 0; i < recording.size(); ++i)
        times.append(recording.time(i) / nsPerMs);
    // The fourth one has an earlier time than its predecessor.
    QCOMPARE(times, (QVector<qint64>{0, 10, 10, 10, 1005}));
}

// A board without a clock starts in 1970 and learns the date later.
void ReadingTest::leavesOutStepsOfTheClock()
{
    const QString file = path("clock.pcap");
    CaptureFile capture(file, DLT_RAW);
    constexpr qint64 day = 24LL * 3600 * 1000;
    for (const qint64 ms : {qint64(0), qint64(10), day * 3, day * 3 + 10, qint64(20)})
        capture.addDatagram(true, strike(), ms * nsPerMs);
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QCOMPARE(recording.duration(), 20 * nsPerMs);
}

void ReadingTest::readsAnotherPort()
{
    const QString file = path("port.pcap");
    CaptureFile capture(file, DLT_RAW);
    capture.addIp(withWord(ipPacket(true, strike()), 20, 30000));
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY(!recording.load(file, &problem));
    QVERIFY2(recording.load(file, &problem, 30000), qPrintable(problem));
    QCOMPARE(recording.datagram(0), strike());
}

void ReadingTest::refusesAPacket_data()
{
    QTest::addColumn<QByteArray>("packet");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("reason");
    const QByteArray packet = ipPacket(true, strike());
    const auto row = [](const char *name, const QByteArray &bytes, int length, const char *reason) {
        QTest::newRow(name) << bytes << length << QString::fromLatin1(reason);
    };
    row("first fragment", withWord(packet, 6, 0x2000), 0, "packet 2 is a fragment of a datagram");
    row("cut by one byte", packet.left(35), 36, "packet 2 is cut (capture with a larger snapshot length)");
    row("cut after its ports", packet.left(28), 36,
        "packet 2 is cut (capture with a larger snapshot length)");
    row("IP size too large", withWord(packet, 2, 37), 0,
        "packet 2 is damaged: its lengths contradict each other");
    row("IP size too small", withWord(packet, 2, 35), 0,
        "packet 2 is damaged: its lengths contradict each other");
    row("UDP size too large", withWord(packet, 24, 17), 0,
        "packet 2 is damaged: its lengths contradict each other");
    row("UDP size below its header", withWord(packet, 24, 7), 0,
        "packet 2 is damaged: its lengths contradict each other");
    row("both ports the engine's", withWord(packet, 22, 19797), 0,
        "packet 2 has port 19797 on both sides, so its direction is unknown");
}

void ReadingTest::refusesAPacket()
{
    QFETCH(QByteArray, packet);
    QFETCH(int, length);
    QFETCH(QString, reason);
    const QString file = path("bad.pcap");
    CaptureFile capture(file, DLT_RAW);
    capture.addDatagram(false, setting());
    capture.add(packet, 0, length);
    capture.addDatagram(true, strike());
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY(!recording.load(file, &problem));
    QCOMPARE(problem, QStringLiteral("recording %1: %2").arg(file, reason));
}

void ReadingTest::refusesAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &content, const char *reason) {
        QTest::newRow(name) << content << QString::fromLatin1(reason);
    };
    // Version 2.4, snapshot length 65535; the last field is the link type.
    const QByteArray header = hex("4D3CB2A1 0200 0400 00000000 00000000 FFFF0000");
    row("empty file", {}, "the file is empty");
    row("text", "at 500 strike snare 100\n", "unknown file format");
    row("zeros", QByteArray(100, '\0'), "unknown file format");
    row("part of a header", hex("4D3CB2A1 0200"), "truncated dump file");
    row("no packet", header + hex("65000000"), "the capture is empty");
    row("wireless", header + hex("7F000000"),
        "packets of link type 127 (802.11 plus radiotap header) cannot be read");
    row("unknown link type", header + hex("93000000"), "packets of link type 147 (");
    row("packet without its end", header + hex("65000000 01000000 00000000 24000000 24000000 45"),
        "after 0 packets: truncated dump file");
    row("packet of four gigabytes", header + hex("65000000 01000000 00000000 FFFFFFFF FFFFFFFF 45"),
        "after 0 packets: ");
    row("cut before the ports",
        header + hex("65000000 01000000 00000000 10000000 24000000") + QByteArray(16, '\x45'),
        "the packets are cut too short to be read");
}

void ReadingTest::refusesAFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QFile file(path("refused"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();
    Recording recording;
    QString problem;
    QVERIFY(!recording.load(file.fileName(), &problem));
    QVERIFY2(problem.startsWith(QStringLiteral("recording %1: %2").arg(file.fileName(), reason)),
             qPrintable(problem));
    QVERIFY(!problem.contains(QLatin1Char('\n')));
}

// A capture that ends anywhere but between two packets is refused as a whole.
void ReadingTest::refusesEveryTruncation()
{
    const QString whole = path("whole.pcap");
    CaptureFile capture(whole, DLT_RAW);
    capture.addDatagram(false, setting());
    capture.addDatagram(true, strike());
    QVERIFY(capture.finish());
    QFile file(whole);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const int firstEnd = 24 + 16 + 28 + setting().size();
    for (int size = 0; size < bytes.size(); ++size) {
        QFile cut(path("cut.pcap"));
        QVERIFY(cut.open(QIODevice::WriteOnly));
        cut.write(bytes.left(size));
        cut.close();
        Recording recording;
        QString problem;
        QCOMPARE(recording.load(cut.fileName(), &problem), size == firstEnd);
        QCOMPARE(problem.isEmpty(), size == firstEnd);
    }
}

void ReadingTest::refusesASecondEngine()
{
    const QString file = path("engines.pcap");
    CaptureFile capture(file, DLT_RAW);
    capture.addDatagram(true, strike());
    capture.addIp(withWord(ipPacket(true, strike()), 14, 0x1517));
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY(!recording.load(file, &problem));
    QVERIFY2(problem.endsWith(QStringLiteral(
                 "packet 2 belongs to a second engine, 172.20.21.23; the first one is 172.20.21.22")),
             qPrintable(problem));
}

void ReadingTest::isEmptyAfterAFailure()
{
    const QString file = path("good.pcap");
    CaptureFile capture(file, DLT_RAW);
    capture.addDatagram(true, strike());
    QVERIFY(capture.finish());
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem), qPrintable(problem));
    QVERIFY(!recording.load(m_directory.path(), &problem));
    QVERIFY2(problem.contains(QStringLiteral("Is a directory")), qPrintable(problem));
    QVERIFY(!recording.load(path("none"), &problem));
    QCOMPARE(problem, QStringLiteral("recording %1: No such file or directory").arg(path("none")));
    QCOMPARE(recording.size(), 0);
    QCOMPARE(recording.countFromEngine(), 0);
}

QTEST_GUILESS_MAIN(ReadingTest)
#include "tst_reading.moc"
