// The options of zelta-engine-sim for recordings: output, files, exit status, and that nothing is sent by
// mistake.
#include "recording/capturefile.h"
#include "recording/filesizelimit.h"
#include "simulator/recording.h"
#include "support/datagram.h"
#include "support/patience.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

#include <pcap/pcap.h>

#include <csignal>

using simulated::Recording;
using testsupport::datagram;
using testsupport::patienceMs;

namespace {

constexpr qint64 nsPerMs = 1000000;

QByteArray strike()
{
    return datagram("IM AC 9909 6426");
}

QByteArray setting()
{
    return datagram("IM 0003 0BB96338 0BB96207 0BB90664");
}

} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void recordsAndReplays();
    void leavesAReadableFileWhenKilled();
    void reportsARecordingThatCannotBeWritten();
    void reportsADiskThatFillsUp();
    void replaysWhatItRecordedOnAnotherPort();
    void sendsNothingButTheRecording();
    void endsAfterTheReplay();
    void loopsUntilItsEnd();
    void findsDifferences_data();
    void findsDifferences();
    void waitsForTheModuleAtTheEnd();
    void sendsNothingOfABadCapture_data();
    void sendsNothingOfABadCapture();
    void writesAScenario();
    void refusesOptions_data();
    void refusesOptions();

private:
    bool start(const QStringList &arguments);
    bool waitForLine(const QByteArray &line);
    int finish();
    void send(const QByteArray &datagram);
    QByteArray receive();
    QString path(const char *name) const { return m_directory.filePath(QLatin1String(name)); }
    QString writeCapture(const char *name);

    QTemporaryDir m_directory;
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
    std::unique_ptr<QUdpSocket> m_module;
    quint16 m_port = 0;
};

void ProgramTest::initTestCase()
{
    // For FileSizeLimit. The program inherits it.
    QVERIFY(std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR);
}

void ProgramTest::init()
{
    m_process.setProgram(QStringLiteral(ENGINE_PROGRAM));
    m_output.clear();
    m_module = std::make_unique<QUdpSocket>();
    QVERIFY(m_module->bind(QHostAddress(QStringLiteral("127.20.40.12")), 0));
}

void ProgramTest::cleanup()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(patienceMs);
    }
}

bool ProgramTest::start(const QStringList &arguments)
{
    m_process.start(m_process.program(),
                    QStringList{QStringLiteral("--listen"), QStringLiteral("127.20.40.11:0")} + arguments);
    if (!waitForLine("listening on 127.20.40.11:"))
        return false;
    const int at = m_output.indexOf("127.20.40.11:") + int(qstrlen("127.20.40.11:"));
    m_port = m_output.mid(at, m_output.indexOf('\n', at) - at).toUShort();
    return m_port != 0;
}

bool ProgramTest::waitForLine(const QByteArray &line)
{
    while (!m_output.contains(line) || !m_output.endsWith('\n')) {
        if (!m_process.waitForReadyRead(patienceMs))
            return false;
        m_output += m_process.readAllStandardOutput();
    }
    return true;
}

// Returns the exit status, -1 if the program does not end by itself.
int ProgramTest::finish()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(patienceMs))
        return -1;
    m_output += m_process.readAllStandardOutput();
    m_errors = m_process.readAllStandardError();
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void ProgramTest::send(const QByteArray &datagram)
{
    m_module->writeDatagram(datagram, QHostAddress(QStringLiteral("127.20.40.11")), m_port);
}

QByteArray ProgramTest::receive()
{
    if (!m_module->hasPendingDatagrams() && !m_module->waitForReadyRead(patienceMs))
        return QByteArrayLiteral("nothing");
    QByteArray bytes(65536, '\0');
    bytes.truncate(int(m_module->readDatagram(bytes.data(), bytes.size())));
    return bytes;
}

// A setting, a strike and another setting.
QString ProgramTest::writeCapture(const char *name)
{
    CaptureFile capture(path(name), DLT_LINUX_SLL2);
    capture.addDatagram(false, setting());
    capture.addDatagram(true, strike(), 20 * nsPerMs);
    capture.addDatagram(false, datagram("LD 0001 0001"), 30 * nsPerMs);
    return capture.finish() ? path(name) : QString();
}

void ProgramTest::recordsAndReplays()
{
    const QString file = path("session.pcap");
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--record"), file}));
    send(setting());
    QVERIFY(waitForLine("module "));
    m_process.write("meters off\nstrike snare 100\nquit\n");
    QCOMPARE(finish(), 0);

    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem, m_port), qPrintable(problem));
    QCOMPARE(recording.datagram(0), setting());
    QVERIFY(!recording.isFromEngine(0));
    QCOMPARE(recording.datagram(recording.size() - 1), strike());
}

void ProgramTest::leavesAReadableFileWhenKilled()
{
    const QString file = path("killed.pcap");
    QVERIFY(start({QStringLiteral("--record"), file}));
    send(setting());
    for (int i = 0; i < 20; ++i)
        QVERIFY(receive() != "nothing");
    m_process.kill();
    QVERIFY(m_process.waitForFinished(patienceMs));
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem, m_port), qPrintable(problem));
    // The latest one may have been sent and not yet written.
    QVERIFY(recording.countFromEngine() >= 19);
    QCOMPARE(recording.countFromModule(), 1);
}

void ProgramTest::reportsARecordingThatCannotBeWritten()
{
    m_process.start(m_process.program(), {QStringLiteral("--listen"), QStringLiteral("127.20.40.11:0"),
                                          QStringLiteral("--record"), path("none/session.pcap")});
    QCOMPARE(finish(), 1);
    QCOMPARE(m_output, QByteArray());
    QCOMPARE(m_errors, "zelta-engine-sim: cannot write recording " + path("none/session.pcap").toLocal8Bit() +
                           ": No such file or directory\n");
}

void ProgramTest::reportsADiskThatFillsUp()
{
    // All packets have an even size, so the space ends within one.
    constexpr int space = 501;
    const QString file = path("full.pcap");
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--record"), file}));
    {
        const FileSizeLimit disk(space, pid_t(m_process.processId()));
        QVERIFY(disk.isSet());
        for (int i = 0; i < space / setting().size(); ++i)
            send(setting());
        m_process.setReadChannel(QProcess::StandardError);
        QVERIFY(m_process.waitForReadyRead(patienceMs));
        m_process.setReadChannel(QProcess::StandardOutput);
    }
    // It still answers, and reports the failure in its exit status.
    send(datagram("SN 0000"));
    QByteArray latest;
    do {
        latest = receive();
    } while (latest != datagram("SN AC 0001 0000") && latest != "nothing");
    QCOMPARE(latest, datagram("SN AC 0001 0000"));
    m_process.write("quit\n");
    QCOMPARE(finish(), 2);
    QCOMPARE(m_errors, "zelta-engine-sim: recording " + file.toLocal8Bit() + " ended: File too large\n");
    Recording recording;
    QString problem;
    QVERIFY2(recording.load(file, &problem, m_port), qPrintable(problem));
    QCOMPARE(recording.datagram(0), setting());
}

void ProgramTest::replaysWhatItRecordedOnAnotherPort()
{
    const QString file = path("port.pcap");
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--record"), file}));
    send(setting());
    QVERIFY(waitForLine("module "));
    m_process.write("meters off\nbeat 7\nquit\n");
    QCOMPARE(finish(), 0);
    const quint16 recordedPort = m_port;
    init();
    QVERIFY(start({QStringLiteral("--replay"), file, QStringLiteral("--recorded-port"),
                   QString::number(recordedPort), QStringLiteral("--compare")}));
    send(setting());
    QByteArray latest;
    do {
        latest = receive();
    } while (latest != datagram("BT AC 0007 0000") && latest != "nothing");
    QCOMPARE(latest, datagram("BT AC 0007 0000"));
    QCOMPARE(finish(), 0);
    QVERIFY(m_output.contains("\ncomparison: no difference\n"));
}

// No groove, meters, tempo or answer of its own.
void ProgramTest::sendsNothingButTheRecording()
{
    QVERIFY(start({QStringLiteral("--replay"), writeCapture("replay.pcap"), QStringLiteral("--compare")}));
    send(setting());
    send(datagram("SN 0000"));
    QCOMPARE(receive(), strike());
    send(datagram("LD 0001 0001"));
    QCOMPARE(finish(), 4);
    QVERIFY(m_output.contains("\nsummary sent-datagrams 1\n"));
    QVERIFY(m_output.contains("\nsummary replayed-datagrams 1\n"));
    QVERIFY(!m_module->hasPendingDatagrams());
}

void ProgramTest::endsAfterTheReplay()
{
    QVERIFY(start({QStringLiteral("--replay"), writeCapture("replay.pcap")}));
    send(setting());
    QCOMPARE(receive(), strike());
    QCOMPARE(finish(), 0);
    QVERIFY(!m_output.contains("compar"));
}

void ProgramTest::loopsUntilItsEnd()
{
    QVERIFY(start({QStringLiteral("--replay"), writeCapture("replay.pcap"), QStringLiteral("--loop"),
                   QStringLiteral("--speed"), QStringLiteral("max")}));
    send(setting());
    for (int i = 0; i < 5; ++i)
        QCOMPARE(receive(), strike());
    m_process.terminate();
    QCOMPARE(finish(), 0);
}

void ProgramTest::findsDifferences_data()
{
    QTest::addColumn<QList<QByteArray>>("answers");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](const char *name, const QList<QByteArray> &answers, int status,
                        const QByteArray &line) {
        QTest::newRow(name) << answers << status << line;
    };
    row("none", {datagram("LD 0001 0001")}, 0, "comparison: no difference");
    row("changed", {datagram("LD 0001 0000")}, 4,
        "difference: changed at 0.030 s: LED 1 off, recorded LED 1 on");
    row("extra", {datagram("LD 0001 0001"), datagram("LD 0002 0001")}, 4, ": LED 2 on\n");
    row("missing", {}, 4, "difference: missing at 0.030 s: LED 1 on");
}

void ProgramTest::findsDifferences()
{
    QFETCH(QList<QByteArray>, answers);
    QFETCH(int, status);
    QFETCH(QByteArray, line);
    QVERIFY(start({QStringLiteral("--replay"), writeCapture("replay.pcap"), QStringLiteral("--compare")}));
    send(setting());
    QCOMPARE(receive(), strike());
    for (const QByteArray &answer : answers)
        send(answer);
    QCOMPARE(finish(), status);
    QVERIFY2(m_output.contains(line), m_output.constData());
    QVERIFY2(m_output.contains("\nsummary compared-datagrams 2\n"), m_output.constData());
    QCOMPARE(m_errors, QByteArray());
}

// The replay ends with the strike. The module sends its last datagrams after it.
void ProgramTest::waitsForTheModuleAtTheEnd()
{
    CaptureFile capture(path("end.pcap"), DLT_RAW);
    capture.addDatagram(false, setting());
    capture.addDatagram(false, datagram("LD 0001 0001"), 1 * nsPerMs);
    capture.addDatagram(true, strike(), 2 * nsPerMs);
    QVERIFY(capture.finish());
    QVERIFY(start({QStringLiteral("--replay"), path("end.pcap"), QStringLiteral("--compare")}));
    send(setting());
    QCOMPARE(receive(), strike());
    m_process.write("after 100 summary\n");
    QVERIFY(waitForLine("summary sent-datagrams 1"));
    send(datagram("LD 0001 0001"));
    send(datagram("LD 0002 0001"));
    QCOMPARE(finish(), 4);
    QVERIFY2(m_output.contains("\nsummary missing 0\nsummary extra 1\n"), m_output.constData());
}

void ProgramTest::sendsNothingOfABadCapture_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"truncated", "fragment", "module only", "empty", "other protocol"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

// The fault comes after datagrams that could be sent.
void ProgramTest::sendsNothingOfABadCapture()
{
    QFETCH(QString, kind);
    const QString file = path("bad.pcap");
    {
        CaptureFile capture(file, DLT_RAW);
        if (kind == QLatin1String("other protocol"))
            capture.add(QByteArray(60, '\x60'));
        if (kind == QLatin1String("module only"))
            capture.addDatagram(false, setting());
        if (kind == QLatin1String("truncated") || kind == QLatin1String("fragment"))
            capture.addDatagram(true, strike());
        if (kind == QLatin1String("truncated"))
            capture.addDatagram(true, strike());
        if (kind == QLatin1String("fragment"))
            capture.addIp(withWord(ipPacket(true, strike()), 6, 0x2000));
        QVERIFY(capture.finish());
    }
    if (kind == QLatin1String("truncated"))
        QVERIFY(QFile::resize(file, QFile(file).size() - 1));
    // The module is known, so a replay would begin at once.
    m_process.start(m_process.program(),
                    {QStringLiteral("--listen"), QStringLiteral("127.20.40.11:0"), QStringLiteral("--module"),
                     QStringLiteral("127.20.40.12:%1").arg(m_module->localPort()), QStringLiteral("--replay"),
                     file});
    QCOMPARE(finish(), 1);
    QCOMPARE(m_output, QByteArray());
    QVERIFY2(m_errors.startsWith("zelta-engine-sim: recording "), m_errors.constData());
    QCOMPARE(m_errors.count('\n'), 1);
    QVERIFY(!m_module->hasPendingDatagrams());
}

void ProgramTest::writesAScenario()
{
    const QString file = path("session.scenario");
    m_process.start(m_process.program(), {QStringLiteral("--replay"), writeCapture("replay.pcap"),
                                          QStringLiteral("--to-scenario"), file});
    QCOMPARE(finish(), 0);
    QCOMPARE(m_output, QByteArray());
    QFile scenario(file);
    QVERIFY(scenario.open(QIODevice::ReadOnly));
    const QByteArray text = scenario.readAll();
    QVERIFY2(text.endsWith("\nanswers off\nmeters off\nwait-for module\nat 20 strike snare 100\n"),
             text.constData());
    init();
    QVERIFY(start({QStringLiteral("--scenario"), file}));
    // Until the steps before the wait have run.
    m_process.write("after 100 summary\n");
    QVERIFY(waitForLine("summary sent-datagrams 0"));
    send(setting());
    QCOMPARE(receive(), strike());
    m_process.write("quit\n");
    QCOMPARE(finish(), 0);
    QVERIFY(m_output.contains("\nsummary sent-datagrams 1\n"));
}

void ProgramTest::refusesOptions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](const char *arguments, const char *line) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                                 << QByteArray(line);
    };
    row("--loop", "--loop needs --replay FILE");
    row("--compare", "--compare needs --replay FILE");
    row("--speed 2", "--speed needs --replay FILE");
    row("--to-scenario x", "--to-scenario needs --replay FILE");
    row("--recorded-port 5", "--recorded-port needs --replay FILE");
    row("--replay ", "--replay takes the name of a file");
    row("--record ", "--record takes the name of a file");
    row("--replay x --compare --loop", "--compare and --loop exclude each other");
    row("--replay x --to-scenario y --loop",
        "--to-scenario excludes --speed, --loop, --compare and --record");
    row("--replay x --speed 0", "--speed takes a factor from 0.001 to 1000, or max, not \"0\"");
    row("--replay x --speed -1", "--speed takes a factor from 0.001 to 1000, or max, not \"-1\"");
    row("--replay x --speed nan", "--speed takes a factor from 0.001 to 1000, or max, not \"nan\"");
    row("--replay x --speed fast", "--speed takes a factor from 0.001 to 1000, or max, not \"fast\"");
    row("--replay x --recorded-port 0", "--recorded-port takes a port from 1 to 65535, not \"0\"");
    row("--replay x --recorded-port 65536", "--recorded-port takes a port from 1 to 65535, not \"65536\"");
    row("--replay x --groove", "--replay excludes --groove, --scenario, --fail and --store");
    row("--replay x --fail drop", "--replay excludes --groove, --scenario, --fail and --store");
    row("--replay " ENGINE_PROGRAM " --record " ENGINE_PROGRAM,
        "\"" ENGINE_PROGRAM "\" would be overwritten");
}

void ProgramTest::refusesOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, line);
    m_process.start(m_process.program(), arguments);
    QCOMPARE(finish(), 1);
    QCOMPARE(m_output, QByteArray());
    QCOMPARE(m_errors, "zelta-engine-sim: " + line + '\n');
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "tst_program.moc"
