// Recordings that the simulated engine writes.
#include "recording/filesizelimit.h"
#include "simulator/recording.h"
#include "simulator/soundengine.h"
#include "support/datagram.h"
#include "support/hex.h"
#include "support/patience.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>
#include <QtEndian>

#include <csignal>

using simulated::Recording;
using testsupport::datagram;
using testsupport::hex;
using testsupport::patienceMs;

namespace {

constexpr int fileHeaderSize = 24;
constexpr int packetHeaderSize = 16;
constexpr int strikePacketSize = packetHeaderSize + 28 + 8;

struct RecordedPacket
{
    quint64 ns;
    QByteArray bytes;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint32 number(const QByteArray &bytes, int offset)
{
    return qFromUnaligned<quint32>(bytes.constData() + offset);
}

// Reads the file as its format says, in the byte order of this machine. The packets of a file that ends in
// one are empty.
QVector<RecordedPacket> packetsOf(const QString &path)
{
    const QByteArray content = contentOf(path);
    QVector<RecordedPacket> packets;
    int at = fileHeaderSize;
    while (at + packetHeaderSize <= content.size()) {
        const auto size = int(number(content, at + 8));
        packets.append({number(content, at) * quint64(1000000000) + number(content, at + 4),
                        content.mid(at + packetHeaderSize, size)});
        at += packetHeaderSize + size;
    }
    return at == content.size() ? packets : QVector<RecordedPacket>();
}

// The sum of RFC 1071, which is 0xFFFF over data with a correct checksum.
quint32 onesSum(const QByteArray &bytes)
{
    quint32 sum = 0;
    for (int i = 0; i < bytes.size(); ++i)
        sum += quint32(quint8(bytes.at(i))) << (i % 2 == 0 ? 8 : 0);
    while (sum > 0xFFFF)
        sum = (sum & 0xFFFF) + (sum >> 16);
    return sum;
}

} // namespace

class RecorderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void writesBothDirections();
    void writesCorrectPackets_data();
    void writesCorrectPackets();
    void isCompleteAfterEachDatagram();
    void recordsWhatAFailureModeDrops();
    void recordsTheAddressOfAnyInterface();
    void replacesAFile();
    void stopsAndStartsAgain();
    void refusesAPathThatCannotBeWritten();
    void reportsAFullDiskAtTheStart();
    void endsWithAWholePacketOnAFullDisk_data();
    void endsWithAWholePacketOnAFullDisk();

private:
    bool send(const QByteArray &datagram);

    QTemporaryDir m_directory;
    QString m_file;
    QString m_problem;
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<QUdpSocket> m_module;
};

void RecorderTest::initTestCase()
{
    // For FileSizeLimit.
    QVERIFY(std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR);
}

void RecorderTest::init()
{
    m_file = m_directory.filePath(QStringLiteral("session.pcap"));
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(m_engine->listen(QHostAddress(QStringLiteral("127.20.40.1")), 0));
    m_module = std::make_unique<QUdpSocket>();
    QVERIFY(m_module->bind(QHostAddress(QStringLiteral("127.20.40.2")), 0));
}

// Returns when the engine has received the datagram.
bool RecorderTest::send(const QByteArray &datagram)
{
    QSignalSpy moduleSpy(m_engine.get(), &SoundEngine::datagramReceived);
    m_module->writeDatagram(datagram, m_engine->address(), m_engine->port());
    return moduleSpy.wait(patienceMs);
}

void RecorderTest::writesBothDirections()
{
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    const auto before = quint64(QDateTime::currentMSecsSinceEpoch());
    // A request, which the engine answers.
    QVERIFY(send(datagram("SN 0000")));
    QVERIFY(m_engine->strike(38, 100));
    const auto after = quint64(QDateTime::currentMSecsSinceEpoch());

    Recording recording;
    QVERIFY2(recording.load(m_file, &m_problem, m_engine->port()), qPrintable(m_problem));
    QCOMPARE(recording.size(), 3);
    QVERIFY(!recording.isFromEngine(0));
    QCOMPARE(recording.datagram(0), datagram("SN 0000"));
    QVERIFY(recording.isFromEngine(1));
    QCOMPARE(recording.datagram(1), datagram("SN AC 0001 0000"));
    QVERIFY(recording.isFromEngine(2));
    QCOMPARE(recording.datagram(2), datagram("IM AC 9909 6426"));

    const QVector<RecordedPacket> packets = packetsOf(m_file);
    QCOMPARE(packets.size(), 3);
    QVERIFY(packets.at(0).ns / 1000000 >= before && packets.at(2).ns / 1000000 <= after);
    QVERIFY(packets.at(0).ns < packets.at(1).ns && packets.at(1).ns < packets.at(2).ns);
    QVERIFY(packets.at(0).ns % 1000 != 0 || packets.at(1).ns % 1000 != 0 || packets.at(2).ns % 1000 != 0);
}

void RecorderTest::writesCorrectPackets_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("strike") << datagram("IM AC 9909 6426");
    QTest::newRow("odd size") << datagram("IM 41");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("high bytes") << QByteArray(1400, '\xFF');
    QTest::newRow("the largest datagram") << QByteArray(65507, '\x5A');
}

void RecorderTest::writesCorrectPackets()
{
    QFETCH(QByteArray, datagram);
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    QVERIFY(m_engine->sendRaw(datagram));

    // Classic format with nanoseconds, version 2.4, packets of up to 65535 bytes, raw IP.
    const QByteArray header = contentOf(m_file).left(fileHeaderSize);
    QCOMPARE(number(header, 0), 0xA1B23C4DU);
    QCOMPARE(qFromUnaligned<quint16>(header.constData() + 4), quint16(2));
    QCOMPARE(qFromUnaligned<quint16>(header.constData() + 6), quint16(4));
    QCOMPARE(number(header, 16), 65535U);
    QCOMPARE(number(header, 20), 101U);

    const QVector<RecordedPacket> packets = packetsOf(m_file);
    QCOMPARE(packets.size(), 1);
    const QByteArray packet = packets.at(0).bytes;
    const auto word = [&packet](int offset) {
        return qFromBigEndian<quint16>(packet.constData() + offset);
    };
    QCOMPARE(packet.size(), 28 + datagram.size());
    QCOMPARE(packet.at(0), '\x45');
    QCOMPARE(int(word(2)), packet.size());
    QCOMPARE(packet.mid(6, 4), hex("4000 40 11"));
    QCOMPARE(packet.mid(12, 8), hex("7F142801 7F142802"));
    QCOMPARE(word(20), m_engine->port());
    QCOMPARE(word(22), m_module->localPort());
    QCOMPARE(int(word(24)), 8 + datagram.size());
    QCOMPARE(packet.mid(28), datagram);
    QCOMPARE(onesSum(packet.left(20)), 0xFFFFU);
    QVERIFY(word(26) != 0);
    // The pseudo header: addresses, protocol and size.
    QByteArray udp = packet.mid(12, 8) + hex("0011") + packet.mid(24, 2) + packet.mid(20);
    QCOMPARE(onesSum(udp), 0xFFFFU);
}

// A process that is killed leaves a file that ends with a whole packet.
void RecorderTest::isCompleteAfterEachDatagram()
{
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    QCOMPARE(contentOf(m_file).size(), fileHeaderSize);
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    for (int i = 1; i <= 20; ++i) {
        QVERIFY(m_engine->sendRaw(QByteArray(i * 997, char(i))));
        QCOMPARE(packetsOf(m_file).size(), i);
    }
}

void RecorderTest::recordsWhatAFailureModeDrops()
{
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    QVERIFY(m_engine->setFailure(QStringLiteral("drop=2")));
    for (int i = 0; i < 40; ++i)
        m_module->writeDatagram(datagram("LD 0001 0001"), m_engine->address(), m_engine->port());
    QTRY_COMPARE_WITH_TIMEOUT(m_engine->counters().datagrams + m_engine->counters().lost, quint64(40),
                              patienceMs);
    QVERIFY(m_engine->counters().lost > 0);
    QCOMPARE(packetsOf(m_file).size(), 40);
}

void RecorderTest::recordsTheAddressOfAnyInterface()
{
    SoundEngine engine;
    QVERIFY(engine.listen(QHostAddress(QHostAddress::AnyIPv4), 0));
    QVERIFY2(engine.startRecording(m_file, &m_problem), qPrintable(m_problem));
    engine.setModule(m_module->localAddress(), m_module->localPort());
    QVERIFY(engine.strike(38, 100));
    const QVector<RecordedPacket> packets = packetsOf(m_file);
    QCOMPARE(packets.size(), 1);
    // The kernel sends from an address of the loopback network to another one there.
    QCOMPARE(packets.at(0).bytes.mid(12, 1), hex("7F"));
}

void RecorderTest::replacesAFile()
{
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    QCOMPARE(contentOf(m_file).size(), fileHeaderSize);
}

void RecorderTest::stopsAndStartsAgain()
{
    const QString second = m_directory.filePath(QStringLiteral("second.pcap"));
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    QVERIFY(m_engine->startRecording(m_file, &m_problem));
    QVERIFY(m_engine->strike(38, 1));
    QVERIFY(m_engine->startRecording(second, &m_problem));
    QVERIFY(m_engine->strike(38, 2));
    m_engine->stopRecording();
    QVERIFY(m_engine->strike(38, 3));
    QCOMPARE(packetsOf(m_file).size(), 1);
    QCOMPARE(packetsOf(second).size(), 1);
    QCOMPARE(packetsOf(second).at(0).bytes.mid(28), datagram("IM AC 9909 0226"));
}

void RecorderTest::refusesAPathThatCannotBeWritten()
{
    const QString path = m_directory.filePath(QStringLiteral("none/session.pcap"));
    QVERIFY(!m_engine->startRecording(path, &m_problem));
    QCOMPARE(m_problem, QStringLiteral("cannot write recording %1: No such file or directory").arg(path));
    QVERIFY(!m_engine->startRecording(m_directory.path(), &m_problem));
    QCOMPARE(m_problem, QStringLiteral("cannot write recording %1: Is a directory").arg(m_directory.path()));
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    QVERIFY(m_engine->strike(38, 1));
}

void RecorderTest::reportsAFullDiskAtTheStart()
{
    QVERIFY(!m_engine->startRecording(QStringLiteral("/dev/full"), &m_problem));
    QCOMPARE(m_problem, QStringLiteral("cannot write recording /dev/full: No space left on device"));
}

void RecorderTest::endsWithAWholePacketOnAFullDisk_data()
{
    QTest::addColumn<int>("space");
    QTest::newRow("no byte of the next packet fits") << 0;
    QTest::newRow("a part of its header fits") << packetHeaderSize / 2;
    QTest::newRow("all but its last byte fits") << strikePacketSize - 1;
}

void RecorderTest::endsWithAWholePacketOnAFullDisk()
{
    QFETCH(int, space);
    QVERIFY2(m_engine->startRecording(m_file, &m_problem), qPrintable(m_problem));
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    QSignalSpy failed(m_engine.get(), &SoundEngine::recordingFailed);
    {
        const FileSizeLimit disk(fileHeaderSize + 2 * strikePacketSize + space);
        QVERIFY(disk.isSet());
        for (quint8 velocity = 1; velocity <= 4; ++velocity)
            QVERIFY(m_engine->strike(38, velocity));
    }
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.at(0).at(0).toString(), QStringLiteral("recording %1 ended: File too large").arg(m_file));

    Recording recording;
    QVERIFY2(recording.load(m_file, &m_problem, m_engine->port()), qPrintable(m_problem));
    QCOMPARE(recording.size(), 2);
    QCOMPARE(recording.datagram(1), datagram("IM AC 9909 0226"));
    // The disk has space again, but the recording does not go on with a gap.
    QVERIFY(m_engine->strike(38, 5));
    QCOMPARE(packetsOf(m_file).size(), 2);
}

QTEST_GUILESS_MAIN(RecorderTest)
#include "tst_recorder.moc"
