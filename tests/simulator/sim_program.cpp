// The program zelta-engine-sim from outside: its options, its standard input, its output and its exit.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

#include <csignal>

namespace {

constexpr int patience = 20000;

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

} // namespace

class SimProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void refusesToStart_data();
    void refusesToStart();
    void refusesAnAddressInUse();
    void tellsAboutItself_data();
    void tellsAboutItself();
    void listsEveryFailure();
    void printsWhatItHears();
    void staysQuietWithoutVerbose();
    void obeysStandardInput();
    void outlivesItsStandardInput();
    void endsOnSignals_data();
    void endsOnSignals();
    void endsAfterItsDuration();
    void countsViolationsInItsExit();
    void playsAScenario();
    void failsWithItsScenario();
    void samplesAreGood();
    void storesFiles();
    void playsByDefaultAndTheSameForTheSameSeed();

private:
    bool start(const QStringList &arguments);
    bool waitForLine(const QByteArray &line);
    bool finish();
    void type(const char *text);
    void send(const QByteArray &datagram);
    QByteArray receive();

    QProcess m_process;
    QByteArray m_output;
    std::unique_ptr<QUdpSocket> m_socket;
    quint16 m_port = 0;
};

void SimProgram::initTestCase()
{
    m_process.setProgram(QStringLiteral(ENGINE_PROGRAM));
}

void SimProgram::init()
{
    m_output.clear();
    m_socket = std::make_unique<QUdpSocket>();
    QVERIFY(m_socket->bind(QHostAddress(QHostAddress::LocalHost), 0));
}

void SimProgram::cleanup()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool SimProgram::start(const QStringList &arguments)
{
    m_process.setArguments(QStringList{QStringLiteral("--listen"), QStringLiteral("127.20.22.2:0")} +
                           arguments);
    m_process.start();
    if (!waitForLine("listening on 127.20.22.2:"))
        return false;
    const int at = m_output.indexOf("127.20.22.2:") + int(qstrlen("127.20.22.2:"));
    m_port = m_output.mid(at, m_output.indexOf('\n', at) - at).toUShort();
    return m_port != 0;
}

// Output may come in pieces; the line is looked for in all of it.
bool SimProgram::waitForLine(const QByteArray &line)
{
    while (!m_output.contains(line) || !m_output.endsWith('\n')) {
        if (!m_process.waitForReadyRead(patience))
            return false;
        m_output += m_process.readAllStandardOutput();
    }
    return true;
}

bool SimProgram::finish()
{
    const bool finished = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(patience);
    m_output += m_process.readAllStandardOutput();
    return finished && m_process.exitStatus() == QProcess::NormalExit;
}

void SimProgram::type(const char *text)
{
    m_process.write(text);
    m_process.waitForBytesWritten(patience);
}

void SimProgram::send(const QByteArray &datagram)
{
    m_socket->writeDatagram(datagram, QHostAddress(QStringLiteral("127.20.22.2")), m_port);
}

QByteArray SimProgram::receive()
{
    if (!m_socket->hasPendingDatagrams() && !m_socket->waitForReadyRead(patience))
        return QByteArrayLiteral("nothing");
    QByteArray bytes(2000, '\0');
    const qint64 size = m_socket->readDatagram(bytes.data(), bytes.size());
    return bytes.left(int(size));
}

void SimProgram::refusesToStart_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, const QStringList &arguments, const char *complaint) {
        QTest::newRow(name) << arguments << QString::fromLatin1(complaint);
    };
    const auto s = [](const char *text) {
        return QString::fromLatin1(text);
    };
    row("unknown option", {s("--bogus")}, "Unknown option 'bogus'.");
    row("argument", {s("snare")}, "unexpected argument \"snare\"");
    row("no address", {s("--listen"), s("here")}, "--listen takes an IPv4 address and a port, not \"here\"");
    row("short address", {s("--listen"), s("127.1")},
        "--listen takes an IPv4 address and a port, not \"127.1\"");
    row("large port", {s("--listen"), s("127.20.22.2:65536")},
        "--listen takes an IPv4 address and a port, not \"127.20.22.2:65536\"");
    row("module without port", {s("--module"), s("127.0.0.1")},
        "--module takes an IPv4 address and a port, not \"127.0.0.1\"");
    row("both grooves", {s("--groove"), s("--no-groove")}, "--groove and --no-groove exclude each other");
    row("unknown failure", {s("--fail"), s("explode")}, "--fail: unknown failure mode \"explode\"");
    row("seed", {s("--seed"), s("luck")}, "--seed takes a number from 0, not \"luck\"");
    row("no duration", {s("--duration"), s("0")},
        "--duration takes seconds above 0, up to 2000000, not \"0\"");
    row("long duration", {s("--duration"), s("3000000")},
        "--duration takes seconds above 0, up to 2000000, not \"3000000\"");
    row("no scenario", {s("--scenario"), s("/nowhere/verse.scenario")},
        "scenario /nowhere/verse.scenario: No such file or directory");
    row("scenario is a directory", {s("--scenario"), s("/")}, "scenario /: ");
    row("store where nothing can be written", {s("--store"), s("/proc")},
        "--store: \"/proc\" is no directory that can be written to");
    row("no store", {s("--store"), s("/nowhere")},
        "--store: \"/nowhere\" is no directory that can be written to");
    row("address of another machine", {s("--listen"), s("192.0.2.1:19797")},
        "cannot listen on 192.0.2.1:19797: ");
}

void SimProgram::refusesToStart()
{
    QFETCH(QStringList, arguments);
    m_process.setArguments(arguments);
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_output, QByteArray());
    const QString said = QString::fromLocal8Bit(m_process.readAllStandardError());
    QCOMPARE(said.count(QLatin1Char('\n')), 1);
    QFETCH(QString, complaint);
    QVERIFY2(said.startsWith(QLatin1String("zelta-engine-sim: ") + complaint), qPrintable(said));
}

void SimProgram::refusesAnAddressInUse()
{
    QVERIFY(start({}));
    QProcess second;
    second.start(QStringLiteral(ENGINE_PROGRAM),
                 {QStringLiteral("--listen"), QStringLiteral("127.20.22.2:%1").arg(m_port)});
    QVERIFY(second.waitForFinished(patience));
    QCOMPARE(second.exitCode(), 1);
    const QByteArray complaint = second.readAllStandardError();
    QVERIFY2(complaint.startsWith("zelta-engine-sim: cannot listen on 127.20.22.2:"), complaint.constData());
    QCOMPARE(complaint.count('\n'), 1);
}

void SimProgram::tellsAboutItself_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("says");
    QTest::newRow("help") << QStringLiteral("--help") << QByteArray("--list-failures");
    QTest::newRow("short help") << QStringLiteral("-h") << QByteArray("--list-failures");
    QTest::newRow("version") << QStringLiteral("--version") << QByteArray("zelta-engine-sim 1.");
    QTest::newRow("failures") << QStringLiteral("--list-failures") << QByteArray("memory-full-e2[=5]");
}

void SimProgram::tellsAboutItself()
{
    QFETCH(QString, option);
    m_process.setArguments({option});
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QFETCH(QByteArray, says);
    QVERIFY2(m_output.contains(says), m_output.constData());
    QCOMPARE(m_process.readAllStandardError(), QByteArray());
}

void SimProgram::listsEveryFailure()
{
    m_process.setArguments({QStringLiteral("--list-failures")});
    m_process.start();
    QVERIFY(finish());
    const QList<QByteArray> lines = m_output.trimmed().split('\n');
    QVERIFY(lines.size() >= 30);
    // The first word of every line, without its number, is good for --fail.
    QStringList arguments;
    for (const QByteArray &line : lines)
        arguments +=
            {QStringLiteral("--fail"), QString::fromLatin1(line.left(line.indexOf(' ')).split('[').at(0))};
    m_output.clear();
    QVERIFY(start(arguments));
}

void SimProgram::printsWhatItHears()
{
    QVERIFY(start({QStringLiteral("--verbose"), QStringLiteral("--no-groove")}));
    send(hex("494D0003 0BB96321 0BB96226 0BB9063F"));
    send(hex("494D0004 0BB96337 0BB96264 0BB92600 0BB90632"));
    send(hex("494D0004 0BB96338 0BB9620E 0BB92668 0BB90607"));
    send(hex("494D0003 0BB9630D 0BB96222 0BB90605"));
    send(hex("4C44 0003 0001"));
    QVERIFY(waitForLine("LED 3 on\n"));
    const QByteArray expected = "module 127.0.0.1:" + QByteArray::number(m_socket->localPort()) +
                                "\n"
                                "pad 38 EQ low gain 63\n"
                                "metronome tempo 120\n"
                                "master EQ mid 1 frequency 1000\n"
                                "parameter 0x0d/0x22 value 5\n"
                                "LED 3 on\n";
    QVERIFY2(m_output.endsWith(expected), m_output.constData());
    m_process.terminate();
    QVERIFY(finish());
    QVERIFY(m_output.contains("summary received-datagrams 5\n"));
    QVERIFY(m_output.contains("summary received-parameters 4\n"));
    QVERIFY(m_output.contains("summary violations 0\n"));
    QCOMPARE(m_process.exitCode(), 0);
}

void SimProgram::staysQuietWithoutVerbose()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    send(hex("494D0003 0BB96321 0BB96226 0BB9063F"));
    QVERIFY(waitForLine("module 127.0.0.1:"));
    m_process.terminate();
    QVERIFY(finish());
    QVERIFY(!m_output.contains("pad 38"));
}

void SimProgram::obeysStandardInput()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    type("meters off\n"); // nothing but answers from here on
    type("help\n");
    QVERIFY(waitForLine("quit"));
    type("strike snare\n");
    QVERIFY(waitForLine("not sent: no module has been heard yet\n"));
    send(hex("494D0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("module 127.0.0.1:"));
    QCOMPARE(receive(), hex("544D4143 0078 0000")); // a module heard for the first time is told the tempo
    type("strike snare 100\r\n");
    QCOMPARE(receive(), hex("494D4143 9909 6426"));
    // A bad line is one complaint, and life goes on.
    type("dance\n\n# a comment\nparam 0x38 0x07\n");
    QVERIFY(waitForLine("mixer master out level 100\n"));
    QCOMPARE(m_process.readAllStandardError(), QByteArray("zelta-engine-sim: unknown command \"dance\"\n"));
    type("qu");
    type("it\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary sent-pad-hits 1\n"));
}

void SimProgram::outlivesItsStandardInput()
{
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--verbose")}));
    type("module"); // the last line need not end
    m_process.closeWriteChannel();
    QVERIFY(waitForLine("no module has been heard yet\n"));
    send(hex("494D0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("mixer master out level 100\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);

    m_output.clear();
    m_process.setStandardInputFile(QProcess::nullDevice());
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--verbose")}));
    m_process.setStandardInputFile(QString());
    send(hex("494D0003 0BB96338 0BB96207 0BB90663"));
    QVERIFY(waitForLine("mixer master out level 99\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
}

void SimProgram::endsOnSignals_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void SimProgram::endsOnSignals()
{
    QFETCH(int, signal);
    QVERIFY(start({}));
    QCOMPARE(::kill(pid_t(m_process.processId()), signal), 0);
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary violations 0\n"));
}

void SimProgram::endsAfterItsDuration()
{
    QVERIFY(start({QStringLiteral("--duration"), QStringLiteral("0.2")}));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary received-datagrams 0\n"));
}

void SimProgram::countsViolationsInItsExit()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    send(hex("494D0003 0BB06338 0BB06207 0BB00664"));
    QVERIFY(waitForLine("violation: status 0xb0, not 0xb9 on channel 10: 49 4D 00 03 0B B0 63 38"));
    m_process.terminate();
    QVERIFY(finish());
    QVERIFY(m_output.contains("summary violations 1\n"));
    QCOMPARE(m_process.exitCode(), 3);
}

void SimProgram::playsAScenario()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("test.scenario")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "# wait for the fader\nmeters off\nwait-for param 0x38 0x07 100 within 20000\nstrike snare 90\n"
        "after 50 beat 2\nparam 0x38 0x07\nquit\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), file.fileName()}));
    send(hex("494D0003 0BB96338 0BB96207 0BB90663"));
    send(hex("494D0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(receive(), hex("544D4143 0078 0000"));
    QCOMPARE(receive(), hex("494D4143 9909 5A26"));
    QCOMPARE(receive(), hex("42544143 0002 0000"));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("mixer master out level 100\n"));
}

void SimProgram::failsWithItsScenario()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("bad.scenario"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("at 5 strike snare\n\nat 6 dance\n");
    file.close();
    m_process.setArguments({QStringLiteral("--scenario"), path});
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_process.readAllStandardError(), QByteArray("zelta-engine-sim: scenario ") +
                                                   path.toLocal8Bit() +
                                                   ", line 3: unknown command \"dance\"\n");

    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("wait-for module within 100\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), path}));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 2);
    QCOMPARE(m_process.readAllStandardError(),
             QByteArray("zelta-engine-sim: scenario line 1: wait-for module within 100: did not happen\n"));
}

void SimProgram::samplesAreGood()
{
    const QDir samples(QStringLiteral(SCENARIO_DIR));
    const QStringList names = samples.entryList({QStringLiteral("*.scenario")});
    QVERIFY(names.size() >= 2);
    for (const QString &name : names) {
        m_output.clear();
        QVERIFY(start({QStringLiteral("--scenario"), samples.filePath(name), QStringLiteral("--duration"),
                       QStringLiteral("0.1")}));
        QVERIFY(finish());
        QCOMPARE(m_process.exitCode(), 0);
    }
}

void SimProgram::storesFiles()
{
    const QTemporaryDir directory;
    QVERIFY(start({QStringLiteral("--store"), directory.path(), QStringLiteral("--no-groove")}));
    send(hex("4453 5442 00000003"));
    send(hex("4443 5442 00000000 0002 01020300"));
    send(hex("4445 5442 00000402"));
    QVERIFY(waitForLine("file TB 3 bytes whole "));
    QFile file(directory.filePath(QStringLiteral("001-TB.bin")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), hex("01 02 03"));
}

void SimProgram::playsByDefaultAndTheSameForTheSameSeed()
{
    const auto hits = [this](const QString &seed) {
        m_output.clear();
        QByteArray heard;
        if (!start({QStringLiteral("--seed"), seed, QStringLiteral("--module"),
                    QStringLiteral("127.0.0.1:%1").arg(m_socket->localPort())}))
            return heard;
        // Strikes fall a few milliseconds late by design, so those of one moment may change places; none of
        // the next moment is among the first five.
        QList<QByteArray> strikes;
        while (strikes.size() < 5) {
            const QByteArray datagram = receive();
            if (datagram.size() == 7)
                break;
            if (datagram.startsWith(hex("494D4143 9909")))
                strikes.append(datagram.mid(6));
        }
        m_process.kill();
        m_process.waitForFinished();
        while (m_socket->hasPendingDatagrams())
            m_socket->readDatagram(nullptr, 0);
        std::sort(strikes.begin(), strikes.end());
        for (const QByteArray &strike : qAsConst(strikes))
            heard += strike;
        return heard;
    };
    const QByteArray first = hits(QStringLiteral("4"));
    QCOMPARE(first.size(), 10);
    QCOMPARE(hits(QStringLiteral("4")), first);
    QVERIFY(hits(QStringLiteral("5")) != first);
}

QTEST_GUILESS_MAIN(SimProgram)
#include "sim_program.moc"
