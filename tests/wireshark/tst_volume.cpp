// tshark dissects a long capture without a Lua error.

#include "support/datagram.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"

#include <QTemporaryDir>
#include <QTest>

using testsupport::datagram;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr int datagramCount = 1000000;
constexpr int timeoutMs = 3600000; // CTest limits the time
#else
constexpr int datagramCount = 20000;
constexpr int timeoutMs = testsupport::patienceMs;
#endif

using Direction = Capture::Direction;

QByteArray dataPacket(quint32 number)
{
    QByteArray packet = datagram("DC TB 00000000 0002 01020304");
    for (int i = 0; i < 4; ++i)
        packet[4 + i] = char(number >> (24 - 8 * i) & 0xFF);
    return packet;
}

// A mix of meters, strikes, parameters, SysEx and the packets of one long file.
void append(Capture *capture, int index)
{
    static const QByteArray meters = datagram("DR") + QByteArray(36, '\x20');
    static const QByteArray strike = datagram("IM AC 9909 6426");
    static const QByteArray parameter = datagram("IM 0003 0BB96338 0BB96207 0BB90664");
    static const QByteArray sysExStart = datagram("IM AC F004 4110");
    static const QByteArray sysExEnd = datagram("IM AC F705 0000");
    switch (index % 10) {
    case 0: capture->append(Direction::ToEngine, parameter); break;
    case 1: capture->append(Direction::FromEngine, strike); break;
    case 2: capture->append(Direction::FromEngine, sysExStart); break;
    case 3: capture->append(Direction::FromEngine, sysExEnd); break;
    case 4:
    case 5:
    case 6: capture->append(Direction::FromEngine, meters); break;
    default:
        capture->append(Direction::ToEngine, dataPacket(quint32(index / 10 * 3 + index % 10 - 7)));
        break;
    }
}

} // namespace

class VolumeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDatagramIsDissected();
#ifdef ZELTACONNECT_LONG_CASES
    void longSysExIsDropped();
#endif
};

void VolumeTest::everyDatagramIsDissected()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("volume.pcap"));
    Capture capture(path);
    capture.append(Direction::ToEngine, datagram("DS TB 7FFFFFFF"));
    for (int i = 1; i < datagramCount - 1; ++i)
        append(&capture, i - 1);
    capture.append(Direction::FromEngine, datagram("BT AC 0001 0000"));
    QVERIFY(capture.finish());

    // tshark prints the frames with errors, and the last frame, which shows that tshark has processed all.
    const QString number = QStringLiteral("frame.number");
    const Dissection dissection(
        path, {number}, {QStringLiteral("-Y"), QStringLiteral("_ws.lua.error || !zelta.text || zelta.beat")},
        timeoutMs);
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), 1);
    QCOMPARE(dissection.frames().at(0).value(number), QString::number(datagramCount));
}

#ifdef ZELTACONNECT_LONG_CASES
// The module drops a message of 4 MiB, which are 1048576 events, when the next event arrives.
void VolumeTest::longSysExIsDropped()
{
    constexpr int most = 1024 * 1024;
    const QByteArray event = datagram("IM AC 1004 4212");
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sysex.pcap"));
    Capture capture(path);
    capture.append(Direction::FromEngine, datagram("IM AC F004 4110"));
    for (int i = 0; i < most; ++i)
        capture.append(Direction::FromEngine, event);
    capture.append(Direction::FromEngine, datagram("IM AC F705 0000"));
    QVERIFY(capture.finish());

    const QString text = QStringLiteral("zelta.sysex.text");
    const QString first = QStringLiteral("zelta.sysex.first_in");
    const Dissection dissection(path, {text, first}, {QStringLiteral("-Y"), text}, timeoutMs);
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), 1);
    QCOMPARE(dissection.frames().at(0).value(text), QStringLiteral("0410124205f70000"));
    QCOMPARE(dissection.frames().at(0).value(first), QString::number(most + 1));
}
#endif

QTEST_GUILESS_MAIN(VolumeTest)
#include "tst_volume.moc"
