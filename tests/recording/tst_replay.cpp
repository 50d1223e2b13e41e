// Replaying the engine's side of a recording.
#include "recording/capturefile.h"
#include "simulator/recording.h"
#include "simulator/replayer.h"
#include "simulator/scenarioplayer.h"
#include "simulator/scenariowriter.h"
#include "simulator/soundengine.h"
#include "support/datagram.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/patience.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

#include <pcap/pcap.h>

using namespace simulated;
using testsupport::datagram;
using testsupport::hex;
using testsupport::patienceMs;

namespace {

constexpr qint64 nsPerMs = 1000000;

QByteArray strike(int velocity)
{
    QByteArray bytes = datagram("IM AC 9909 0026");
    bytes[6] = char(velocity);
    return bytes;
}

QByteArray setting()
{
    return datagram("IM 0003 0BB96338 0BB96207 0BB90664");
}

} // namespace

class ReplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sendsTheEnginesSide();
    void waitsForTheModule();
    void startsWithAKnownModule();
    void keepsGaps_data();
    void keepsGaps();
    void isFasterThanTheRecording();
    void waitsLongerThanATimerCan();
    void losesNothingWithoutGaps();
    void beginsWithTheFirstDatagram();
    void loops();
    void doesNotAnswer();
    void writesAScenario_data();
    void writesAScenario();
    void scenarioSendsTheSame();
    void scenarioStartsWithTheModule();
    void scenarioRefusesMoreThanADay();

private:
    void add(bool isFromEngine, const QByteArray &datagram, qint64 ms);
    void load();
    QList<QByteArray> receive(int count);

    QTemporaryDir m_directory;
    std::unique_ptr<CaptureFile> m_capture;
    Recording m_recording;
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<QUdpSocket> m_module;
    QByteArray m_buffer{65536, '\0'};
};

void ReplayTest::init()
{
    m_capture = std::make_unique<CaptureFile>(m_directory.filePath(QStringLiteral("replay.pcap")), DLT_RAW);
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(m_engine->listen(QHostAddress(QStringLiteral("127.20.40.3")), 0));
    m_engine->setAnswering(false);
    m_module = std::make_unique<QUdpSocket>();
    QVERIFY(m_module->bind(QHostAddress(QStringLiteral("127.20.40.4")), 0));
}

void ReplayTest::add(bool isFromEngine, const QByteArray &datagram, qint64 ms)
{
    m_capture->addDatagram(isFromEngine, datagram, ms * nsPerMs);
}

void ReplayTest::load()
{
    QVERIFY(m_capture->finish());
    QString problem;
    QVERIFY2(m_recording.load(m_directory.filePath(QStringLiteral("replay.pcap")), &problem),
             qPrintable(problem));
}

// Waits for that number of datagrams.
QList<QByteArray> ReplayTest::receive(int count)
{
    QList<QByteArray> received;
    const QDeadlineTimer deadline(patienceMs);
    while (received.size() < count && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        while (m_module->hasPendingDatagrams()) {
            const qint64 size = m_module->readDatagram(m_buffer.data(), m_buffer.size());
            received.append(m_buffer.left(int(size)));
        }
    }
    return received;
}

void ReplayTest::sendsTheEnginesSide()
{
    add(false, setting(), 0);
    add(true, strike(1), 1);
    add(true, QByteArray(60000, 'x'), 2);
    add(false, setting(), 2);
    add(true, {}, 3);
    add(true, hex("FF"), 3);
    load();
    Replayer replayer(m_recording, m_engine.get());
    QSignalSpy finished(&replayer, &Replayer::finished);
    QSignalSpy expected(&replayer, &Replayer::moduleSent);
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    replayer.start();
    QVERIFY(finished.wait(patienceMs));
    QCOMPARE(receive(4), (QList<QByteArray>{strike(1), QByteArray(60000, 'x'), {}, hex("FF")}));
    QCOMPARE(replayer.sent(), quint64(4));
    QCOMPARE(m_engine->counters().sent, quint64(4));
    QCOMPARE(expected.size(), 2);
    QCOMPARE(expected.at(0).at(0).toByteArray(), setting());
}

void ReplayTest::waitsForTheModule()
{
    add(true, strike(1), 0);
    load();
    Replayer replayer(m_recording, m_engine.get());
    QSignalSpy finished(&replayer, &Replayer::finished);
    QSignalSpy notSent(&replayer, &Replayer::notSent);
    replayer.start();
    // Timers that are due run before the next datagram is received.
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(finished.size() + notSent.size(), 0);
    m_module->writeDatagram(setting(), m_engine->address(), m_engine->port());
    QVERIFY(finished.wait(patienceMs));
    QCOMPARE(receive(1), QList<QByteArray>{strike(1)});
    // A module that starts again does not start the replay again.
    QUdpSocket second;
    QVERIFY(second.bind(QHostAddress(QStringLiteral("127.20.40.4")), 0));
    QSignalSpy received(m_engine.get(), &SoundEngine::datagramReceived);
    second.writeDatagram(setting(), m_engine->address(), m_engine->port());
    QVERIFY(received.wait(patienceMs));
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(replayer.sent(), quint64(1));
}

void ReplayTest::startsWithAKnownModule()
{
    add(true, strike(1), 0);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    replayer.start();
    QCOMPARE(receive(1), QList<QByteArray>{strike(1)});
}

void ReplayTest::keepsGaps_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<int>("leastMs");
    QTest::newRow("as recorded") << 1.0 << 400;
    QTest::newRow("four times as fast") << 4.0 << 100;
    QTest::newRow("half as fast") << 0.5 << 800;
}

// The second datagram must not come early. How late it comes depends on the machine.
void ReplayTest::keepsGaps()
{
    QFETCH(double, speed);
    QFETCH(int, leastMs);
    // The first datagram is the module's.
    add(false, setting(), 0);
    add(true, strike(1), 200);
    add(true, strike(2), 400);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    QSignalSpy finished(&replayer, &Replayer::finished);
    replayer.setSpeed(speed);
    QElapsedTimer timer;
    timer.start();
    replayer.start();
    QCOMPARE(receive(1), QList<QByteArray>{strike(1)});
    QVERIFY(timer.elapsed() >= leastMs / 2);
    QCOMPARE(receive(1), QList<QByteArray>{strike(2)});
    QVERIFY2(timer.elapsed() >= leastMs, qPrintable(QString::number(timer.elapsed())));
}

void ReplayTest::isFasterThanTheRecording()
{
    add(true, strike(1), 0);
    // Longer than the test waits.
    add(true, strike(2), 4LL * patienceMs);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    replayer.setSpeed(1000.0);
    replayer.start();
    QCOMPARE(receive(2), (QList<QByteArray>{strike(1), strike(2)}));
}

// A timer counts up to 24.8 days. One that cannot be started only writes a warning.
void ReplayTest::waitsLongerThanATimerCan()
{
    constexpr qint64 minuteMs = 60 * 1000;
    add(true, strike(1), 0);
    add(true, strike(2), 40 * minuteMs);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    const testsupport::LogCatcher log;
    Replayer replayer(m_recording, m_engine.get());
    replayer.setSpeed(0.001);
    replayer.start();
    QCOMPARE(receive(1), QList<QByteArray>{strike(1)});
    QCOMPARE(log.warnings(), QStringList());
}

// An hour of a session. The socket of an ordinary user holds about 250 datagrams.
void ReplayTest::losesNothingWithoutGaps()
{
    constexpr int count = 2000;
    QList<QByteArray> sent;
    for (int i = 0; i < count; ++i) {
        sent.append(strike(i % 128));
        add(true, sent.last(), i * 1800);
    }
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    replayer.setSpeed(Replayer::maximumSpeed);
    QElapsedTimer timer;
    timer.start();
    replayer.start();
    QCOMPARE(receive(count), sent);
    // At most four datagrams in a millisecond.
    QVERIFY2(timer.elapsed() >= count / 4 - 10, qPrintable(QString::number(timer.elapsed())));
}

void ReplayTest::beginsWithTheFirstDatagram()
{
    // A recording that begins with the engine starts at once.
    add(true, strike(1), 100000);
    add(false, setting(), 100001);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    QSignalSpy finished(&replayer, &Replayer::finished);
    replayer.start();
    QVERIFY(finished.wait(patienceMs));
    QCOMPARE(replayer.sent(), quint64(1));
}

void ReplayTest::loops()
{
    add(true, strike(1), 0);
    add(true, strike(2), 1);
    load();
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    Replayer replayer(m_recording, m_engine.get());
    QSignalSpy finished(&replayer, &Replayer::finished);
    replayer.setLooping(true);
    replayer.start();
    QCOMPARE(receive(5).mid(0, 5),
             (QList<QByteArray>{strike(1), strike(2), strike(1), strike(2), strike(1)}));
    QCOMPARE(finished.size(), 0);
}

void ReplayTest::doesNotAnswer()
{
    m_engine->setLive(true);
    const QList<QByteArray> requests{datagram("SN 0000"),                            // sound bank version
                                     datagram("IM 0003 0BB9633B 0BB9621F 0BB90600"), // output meters
                                     datagram("IM 0003 0BB9633D 0BB9620F 0BB90600"), // memory
                                     datagram("IM 0004 0BB96337 0BB96264 0BB92600 0BB90630"), // tempo
                                     datagram("DS SB 00000002"),                              // a file
                                     datagram("DC SB 00000005 0001 0102"),                    // with a gap
                                     datagram("DE SB 00000102")};
    QSignalSpy received(m_engine.get(), &SoundEngine::datagramReceived);
    for (const QByteArray &request : requests)
        m_module->writeDatagram(request, m_engine->address(), m_engine->port());
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), requests.size(), patienceMs);
    QCOMPARE(m_engine->counters().sent, quint64(0));
    QCOMPARE(m_engine->violations(), QStringList());
    QVERIFY(m_engine->sendRaw(hex("FF")));
    QCOMPARE(receive(1), QList<QByteArray>{hex("FF")});
}

void ReplayTest::writesAScenario_data()
{
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *line, const QList<QByteArray> &datagrams) {
        QTest::newRow(line) << datagrams << QString::fromLatin1(line);
    };
    row("strike snare 100", {datagram("IM AC 9909 6426")});
    row("strike 60 1", {datagram("IM AC 9909 013C")});
    row("choke crash1 127", {datagram("IM AC A90A 7F31")});
    row("hihat 64", {datagram("IM AC B90B 4004")});
    row("controller 7 90", {datagram("IM AC B90B 5A07")});
    row("program 12", {datagram("IM AC C90C 000C")});
    row("switch headphone 1", {datagram("SW AC 4850 0001")});
    row("event SW 0x4850 0x0002", {datagram("SW AC 4850 0002")});
    row("pot 2 +", {datagram("CO AC 0002 0001")});
    row("pot 3 -", {datagram("CO AC 0003 0000")});
    row("event CO 0x0004 0x0000", {datagram("CO AC 0004 0000")});
    row("tempo 120", {datagram("TM AC 0078 0000")});
    row("event TM 0x0078 0x0001", {datagram("TM AC 0078 0001")});
    row("beat 3", {datagram("BT AC 0003 0000")});
    row("flash 512 256", {datagram("FR AC 0200 0100")});
    row("event DE 0x5342 0x0000", {datagram("DE AC 5342 0000")});
    row("event 0x2341 0x0000 0x0000", {hex("2341 4143 0000 0000")});
    row("event 0x0102 0xffff 0x0000", {hex("0102 4143 FFFF 0000")});
    row("event IM 0x9908 0x0026", {datagram("IM AC 9908 0026")});
    row("event IM 0x9909 0x8026", {datagram("IM AC 9909 8026")});
    row("meters 1 2 0 4", {datagram("DR 0001 0002 0000 0004") + QByteArray(28, '\0')});
    row("meters 0", {datagram("DR") + QByteArray(36, '\0')});
    row("comp monitor 60 58 20", {datagram("CR 0001 003C 003A 0014") + QByteArray(6, '\0')});
    row("comp 9 0", {datagram("CR 0009") + QByteArray(12, '\0')});
    row("testcommand 12 34 56",
        {datagram("IM AC B90B 1263"), datagram("IM AC B90B 3462"), datagram("IM AC B90B 5606")});
    row("sysex F0 7E 7F 06 01 F7", {datagram("IM AC F004 7F7E"), datagram("IM AC 0607 F701")});
    row("send 01 02 03", {hex("010203")});
    row("send 44 52 00 01", {datagram("DR 0001")});
}

void ReplayTest::writesAScenario()
{
    QFETCH(QList<QByteArray>, datagrams);
    QFETCH(QString, line);
    add(false, setting(), 0);
    for (const QByteArray &datagram : datagrams)
        add(true, datagram, 1234);
    load();
    QString problem;
    const QStringList lines = scenarioOf(m_recording, &problem);
    QCOMPARE(lines.mid(2),
             (QStringList{QStringLiteral("answers off"), QStringLiteral("meters off"),
                          QStringLiteral("wait-for module"), QStringLiteral("at 1234 ") + line}));

    Scenario scenario;
    QVERIFY2(
        scenario.parse(lines.join(QLatin1Char('\n')).replace(QStringLiteral("1234"), QStringLiteral("0")),
                       &problem),
        qPrintable(problem));
    m_engine->setAnswering(true);
    m_engine->setMeters(true);
    m_engine->setModule(m_module->localAddress(), m_module->localPort());
    ScenarioPlayer player(scenario, m_engine.get());
    player.start();
    QCOMPARE(receive(datagrams.size()), datagrams);
    QVERIFY(!m_engine->isAnswering());
}

// Also with datagrams that only look like a command of several datagrams.
void ReplayTest::scenarioSendsTheSame()
{
    const QList<QByteArray> sent{
        datagram("IM AC B90B 1263"), datagram("IM AC B90B 3462"), strike(1), datagram("IM AC B90B 5606"),
        datagram("IM AC B90B 1263"), datagram("IM AC F004 7F7E"), strike(2), datagram("IM AC 0607 F701"),
        datagram("IM AC F004 7F7E"),
        // An end event that is filled up with other bytes than zeros.
        datagram("IM AC F705 0101"), datagram("IM AC F704 7F7E"), QByteArray(2000, 'x')};
    for (const QByteArray &datagram : sent)
        add(true, datagram, 10);
    load();
    QString problem;
    Scenario scenario;
    QVERIFY2(scenario.parse(scenarioOf(m_recording, &problem).join(QLatin1Char('\n')), &problem),
             qPrintable(problem));
    ScenarioPlayer player(scenario, m_engine.get());
    player.start();
    m_module->writeDatagram(setting(), m_engine->address(), m_engine->port());
    QCOMPARE(receive(sent.size()), sent);
}

// The times of the recording count from the module's first datagram, however late it comes.
void ReplayTest::scenarioStartsWithTheModule()
{
    constexpr int gapMs = 300;
    add(false, setting(), 0);
    add(true, strike(1), gapMs);
    load();
    QString problem;
    Scenario scenario;
    QVERIFY2(scenario.parse(scenarioOf(m_recording, &problem).join(QLatin1Char('\n')), &problem),
             qPrintable(problem));
    ScenarioPlayer player(scenario, m_engine.get());
    Scenario pause;
    QVERIFY(pause.parse(QStringLiteral("after 400 answers off"), &problem));
    ScenarioPlayer pausePlayer(pause, m_engine.get());
    QSignalSpy paused(&pausePlayer, &ScenarioPlayer::finished);
    player.start();
    pausePlayer.start();
    QVERIFY(paused.wait(patienceMs));
    QElapsedTimer timer;
    timer.start();
    m_module->writeDatagram(setting(), m_engine->address(), m_engine->port());
    QCOMPARE(receive(1), QList<QByteArray>{strike(1)});
    QVERIFY2(timer.elapsed() >= gapMs, qPrintable(QString::number(timer.elapsed())));
}

void ReplayTest::scenarioRefusesMoreThanADay()
{
    constexpr qint64 hours = 3600 * 1000;
    add(true, strike(1), 0);
    add(true, strike(1), 13 * hours);
    add(true, strike(1), 26 * hours);
    load();
    QString problem;
    QCOMPARE(scenarioOf(m_recording, &problem), QStringList());
    QCOMPARE(problem, QStringLiteral("the recording is longer than a day, which no scenario can be"));
}

QTEST_GUILESS_MAIN(ReplayTest)
#include "tst_replay.moc"
