// tshark and the dissector read recordings: every line shows the message, and all checksums are correct.
#include "simulator/soundengine.h"
#include "support/datagram.h"
#include "support/hex.h"
#include "support/patience.h"
#include "wireshark/dissection.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

using testsupport::datagram;
using testsupport::hex;
using testsupport::patienceMs;

class TsharkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheRecordedSession();
    void readsARecording();
};

// The recording of the demo screen: no line without a text of the dissector, no report of a fault.
void TsharkTest::readsTheRecordedSession()
{
    const Dissection dissection(QStringLiteral(SESSION_DIR "/session.pcap"));
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), 548);
    for (const Dissection::Frame &frame : dissection.frames()) {
        QCOMPARE(frame.value(Dissection::protocol), QStringLiteral("ZeltaConnect"));
        QVERIFY(!frame.value(Dissection::text).isEmpty());
        QCOMPARE(frame.value(Dissection::info), frame.value(Dissection::text));
    }
    QCOMPARE(dissection.frames().at(0).value(Dissection::text), QStringLiteral("output meters request 0"));
    QCOMPARE(dissection.frames().at(1).value(Dissection::text), QStringLiteral("tempo 120"));
}

void TsharkTest::readsARecording()
{
    QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("session.pcap"));
    SoundEngine engine;
    QVERIFY(engine.listen(QHostAddress(QStringLiteral("127.20.40.20"))));
    QString problem;
    QVERIFY2(engine.startRecording(file, &problem), qPrintable(problem));
    QUdpSocket module;
    QVERIFY(module.bind(QHostAddress(QStringLiteral("127.20.40.21")), 0));
    QSignalSpy received(&engine, &SoundEngine::datagramReceived);
    module.writeDatagram(datagram("IM 0003 0BB96338 0BB96207 0BB90664"), engine.address(), engine.port());
    QVERIFY(received.wait(patienceMs));
    QVERIFY(engine.strike(38, 100));
    QVERIFY(engine.sendSysEx(hex("F07E7F0601F7")));

    const Dissection dissection(file,
                                {QStringLiteral("ip.checksum.status"), QStringLiteral("udp.checksum.status"),
                                 QStringLiteral("frame.time_delta")},
                                {QStringLiteral("-o"), QStringLiteral("ip.check_checksum:TRUE"),
                                 QStringLiteral("-o"), QStringLiteral("udp.check_checksum:TRUE")});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), 4);
    QCOMPARE(dissection.frames().at(0).value(Dissection::text), QStringLiteral("mixer master out level 100"));
    QCOMPARE(dissection.frames().at(1).value(Dissection::text),
             QStringLiteral("pad 1 snare zone 0 velocity 100"));
    for (const Dissection::Frame &frame : dissection.frames()) {
        QCOMPARE(frame.value(QStringLiteral("ip.checksum.status")), QStringLiteral("1"));
        QCOMPARE(frame.value(QStringLiteral("udp.checksum.status")), QStringLiteral("1"));
        QVERIFY(!frame.value(Dissection::text).isEmpty());
    }
}

QTEST_GUILESS_MAIN(TsharkTest)
#include "tst_tshark.moc"
