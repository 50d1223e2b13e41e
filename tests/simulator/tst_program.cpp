// The program zelta-engine-sim: options, standard input, output and exit status.
#include "programrun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

class ProgramTest : public QObject, private ProgramRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(prepare()); }
    void cleanup() { end(); }
    void refusesToStart_data();
    void refusesToStart();
    void refusesAnAddressInUse();
    void printsInformation_data();
    void printsInformation();
    void listsEveryFailure();
    void printsMessages();
    void printsNoMessagesWithoutVerbose();
    void runsCommandsOfStandardInput();
    void playsTypedSteps();
    void repeatsTypedLines();
    void waitsForTypedStrikes();
    void reportsATypedWaitThatRunsOut();
    void outlivesStandardInput();
    void endsOnSignals_data();
    void endsOnSignals();
    void endsAfterItsDuration();
    void countsViolationsInItsExit();
    void playsAScenario();
    void failsWithItsScenario();
    void failsWhenItsScenarioCannotSend();
    void samplesAreGood();
    void storesFiles();
    void playsByDefaultAndTheSameForTheSameSeed();
};

void ProgramTest::refusesToStart_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const QStringList &arguments, const char *message) {
        QTest::newRow(name) << arguments << QString::fromLatin1(message);
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
    row("port with a sign", {s("--listen"), s("127.20.22.2:+5")},
        "--listen takes an IPv4 address and a port, not \"127.20.22.2:+5\"");
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
    row("endless scenario", {s("--scenario"), s("/dev/zero")}, "scenario /dev/zero: larger than 16 MiB");
    row("scenario is a directory", {s("--scenario"), s("/")}, "scenario /: ");
    row("store not writable", {s("--store"), s("/proc")}, "--store: \"/proc\" is not a writable directory");
    row("no store", {s("--store"), s("/nowhere")}, "--store: \"/nowhere\" is not a writable directory");
    row("address of another machine", {s("--listen"), s("192.0.2.1:19797")},
        "cannot listen on 192.0.2.1:19797: ");
}

void ProgramTest::refusesToStart()
{
    QFETCH(QStringList, arguments);
    m_process.setArguments(arguments);
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_output, QByteArray());
    const QString errors = QString::fromLocal8Bit(m_process.readAllStandardError());
    QCOMPARE(errors.count(QLatin1Char('\n')), 1);
    QFETCH(QString, message);
    QVERIFY2(errors.startsWith(QLatin1String("zelta-engine-sim: ") + message), qPrintable(errors));
}

void ProgramTest::refusesAnAddressInUse()
{
    QVERIFY(start({}));
    QProcess second;
    second.start(QStringLiteral(ENGINE_PROGRAM),
                 {QStringLiteral("--listen"), QStringLiteral("127.20.22.2:%1").arg(m_port)});
    QVERIFY(second.waitForFinished(patience));
    QCOMPARE(second.exitCode(), 1);
    const QByteArray error = second.readAllStandardError();
    QVERIFY2(error.startsWith("zelta-engine-sim: cannot listen on 127.20.22.2:"), error.constData());
    QCOMPARE(error.count('\n'), 1);
}

void ProgramTest::printsInformation_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("help") << QStringLiteral("--help") << QByteArray("--list-failures");
    QTest::newRow("short help") << QStringLiteral("-h") << QByteArray("--list-failures");
    QTest::newRow("version") << QStringLiteral("--version") << QByteArray("zelta-engine-sim 1.");
    QTest::newRow("failures") << QStringLiteral("--list-failures") << QByteArray("memory-full-e2[=5]");
}

void ProgramTest::printsInformation()
{
    QFETCH(QString, option);
    m_process.setArguments({option});
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QFETCH(QByteArray, text);
    QVERIFY2(m_output.contains(text), m_output.constData());
    QCOMPARE(m_process.readAllStandardError(), QByteArray());
}

void ProgramTest::listsEveryFailure()
{
    m_process.setArguments({QStringLiteral("--list-failures")});
    m_process.start();
    QVERIFY(finish());
    const QList<QByteArray> lines = m_output.trimmed().split('\n');
    QVERIFY(lines.size() >= 30);
    // --fail accepts the name at the beginning of every line.
    QStringList arguments;
    for (const QByteArray &line : lines)
        arguments +=
            {QStringLiteral("--fail"), QString::fromLatin1(line.left(line.indexOf(' ')).split('[').at(0))};
    m_output.clear();
    QVERIFY(start(arguments));
}

void ProgramTest::printsMessages()
{
    QVERIFY(start({QStringLiteral("--verbose"), QStringLiteral("--no-groove")}));
    send(datagram("IM 0003 0BB96321 0BB96226 0BB9063F"));
    send(datagram("IM 0004 0BB96337 0BB96264 0BB92600 0BB90632"));
    send(datagram("IM 0004 0BB96338 0BB9620E 0BB92668 0BB90607"));
    send(datagram("IM 0003 0BB9630D 0BB96222 0BB90605"));
    send(datagram("LD 0003 0001"));
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

void ProgramTest::printsNoMessagesWithoutVerbose()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    send(datagram("IM 0003 0BB96321 0BB96226 0BB9063F"));
    QVERIFY(waitForLine("module 127.0.0.1:"));
    m_process.terminate();
    QVERIFY(finish());
    QVERIFY(!m_output.contains("pad 38"));
}

void ProgramTest::runsCommandsOfStandardInput()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    type("meters off\n"); // from here on the engine only answers
    type("help\n");
    QVERIFY(waitForLine("quit"));
    type("strike snare\n");
    QVERIFY(waitForLine("not sent: no module is known yet\n"));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("module 127.0.0.1:"));
    QCOMPARE(receive(), datagram("TM AC 0078 0000")); // the engine sends the tempo to a new module
    type("strike snare 100\r\n");
    QCOMPARE(receive(), datagram("IM AC 9909 6426"));
    // A wrong line gives one message and has no effect.
    type("dance\n\n# a comment\nparam 0x38 0x07\n");
    QVERIFY(waitForLine("mixer master out level 100\n"));
    QCOMPARE(m_process.readAllStandardError(), QByteArray("zelta-engine-sim: unknown command \"dance\"\n"));
    type("qu");
    type("it\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary sent-pad-hits 1\n"));
}

void ProgramTest::playsTypedSteps()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    // Without meters before the engine knows the module.
    type("meters off\nprint silent\n");
    QVERIFY(waitForLine("silent\n"));
    type("wait-for module\nafter 50 strike snare 100\nat 1 beat 2\nafter\nmodule\n");
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(receive(), datagram("TM AC 0078 0000"));
    QCOMPARE(receive(), datagram("IM AC 9909 6426"));
    QCOMPARE(receive(), datagram("BT AC 0002 0000"));
    QVERIFY(waitForLine("module 127.0.0.1:"));
    type("quit\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QCOMPARE(m_process.readAllStandardError(), QByteArray("zelta-engine-sim: usage: after MS COMMAND\n"));
}

void ProgramTest::repeatsTypedLines()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    // A wrong line within a block, a wrong block and an end too many have no effect.
    type("repeat 2\nprint one\ndance\nrepeat 2\nprint two\nend\nend\nrepeat 0\nend\nprint three\nquit\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY2(m_output.contains("\none\ntwo\ntwo\none\ntwo\ntwo\nthree\nsummary "), m_output.constData());
    QCOMPARE(m_process.readAllStandardError(),
             QByteArray("zelta-engine-sim: unknown command \"dance\"\n"
                        "zelta-engine-sim: usage: repeat N, from 1 to 1000000\n"
                        "zelta-engine-sim: end without repeat\n"));
}

void ProgramTest::waitsForTypedStrikes()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("strike.scenario")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("wait-for module\nstrike kick\nprint ready\nwait-for strike snare\nprint struck\nquit\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), file.fileName()}));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("ready\n"));
    type("strike snare\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("ready\nstruck\nsummary "));
}

void ProgramTest::reportsATypedWaitThatRunsOut()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    type("wait-for transfer within 50\nviolations\nquit\n");
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 2);
    QCOMPARE(m_process.readAllStandardError(),
             QByteArray("zelta-engine-sim: wait-for transfer within 50: timed out\n"));
    QVERIFY(m_output.contains("\nviolations 0\n"));
}

void ProgramTest::outlivesStandardInput()
{
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--verbose")}));
    type("module"); // without a line end
    m_process.closeWriteChannel();
    QVERIFY(waitForLine("no module is known yet\n"));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("mixer master out level 100\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);

    m_output.clear();
    m_process.setStandardInputFile(QProcess::nullDevice());
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--verbose")}));
    m_process.setStandardInputFile(QString());
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90663"));
    QVERIFY(waitForLine("mixer master out level 99\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
}

void ProgramTest::endsOnSignals_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void ProgramTest::endsOnSignals()
{
    QFETCH(int, signal);
    QVERIFY(start({}));
    QCOMPARE(::kill(pid_t(m_process.processId()), signal), 0);
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary violations 0\n"));
}

void ProgramTest::endsAfterItsDuration()
{
    QVERIFY(start({QStringLiteral("--duration"), QStringLiteral("0.2")}));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("summary received-datagrams 0\n"));
}

void ProgramTest::countsViolationsInItsExit()
{
    QVERIFY(start({QStringLiteral("--no-groove")}));
    send(datagram("IM 0003 0BB06338 0BB06207 0BB00664"));
    QVERIFY(waitForLine("violation: status 0xb0, not 0xb9 on channel 10: 49 4D 00 03 0B B0 63 38"));
    m_process.terminate();
    QVERIFY(finish());
    QVERIFY(m_output.contains("summary violations 1\n"));
    QCOMPARE(m_process.exitCode(), 3);
}

void ProgramTest::playsAScenario()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("test.scenario")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "# wait for the fader\nmeters off\nwait-for param 0x38 0x07 100 within 20000\nstrike snare 90\n"
        "after 50 beat 2\nparam 0x38 0x07\nquit\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), file.fileName()}));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90663"));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(receive(), datagram("TM AC 0078 0000"));
    QCOMPARE(receive(), datagram("IM AC 9909 5A26"));
    QCOMPARE(receive(), datagram("BT AC 0002 0000"));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_output.contains("mixer master out level 100\n"));
}

void ProgramTest::failsWithItsScenario()
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

    // All faults at once, each with its line.
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("dance\nrepeat 2\nstrike cowbell\nbeat 1\n");
    file.close();
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    const QByteArray prefix = "zelta-engine-sim: scenario " + path.toLocal8Bit();
    QCOMPARE(m_process.readAllStandardError(),
             prefix + ", line 1: unknown command \"dance\"\n" + prefix + ", line 2: repeat without end\n" +
                 prefix + ", line 3: \"cowbell\" is neither a pad nor a note from 0 to 127\n");

    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("wait-for module within 100\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), path}));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 2);
    QCOMPARE(m_process.readAllStandardError(),
             QByteArray("zelta-engine-sim: scenario line 1: wait-for module within 100: timed out\n"));
}

void ProgramTest::failsWhenItsScenarioCannotSend()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("early.scenario")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("strike snare\nmodule\nquit\n");
    file.close();
    QVERIFY(start({QStringLiteral("--scenario"), file.fileName()}));
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 2);
    QCOMPARE(m_process.readAllStandardError(),
             QByteArray("zelta-engine-sim: scenario line 1: strike snare: not sent\n"));
    QVERIFY(m_output.contains("not sent: no module is known yet\nno module is known yet\n"));
}

void ProgramTest::samplesAreGood()
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

void ProgramTest::storesFiles()
{
    const QTemporaryDir directory;
    QVERIFY(start({QStringLiteral("--store"), directory.path(), QStringLiteral("--no-groove")}));
    send(datagram("DS TB 00000003"));
    send(datagram("DC TB 00000000 0002 01020300"));
    send(datagram("DE TB 00000402"));
    QVERIFY(waitForLine("file TB 3 bytes whole "));
    QFile file(directory.filePath(QStringLiteral("001-TB.bin")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), hex("01 02 03"));
}

void ProgramTest::playsByDefaultAndTheSameForTheSameSeed()
{
    const auto hits = [this](const QString &seed) {
        m_output.clear();
        QByteArray played;
        if (!start({QStringLiteral("--seed"), seed, QStringLiteral("--module"),
                    QStringLiteral("127.0.0.1:%1").arg(m_socket->localPort())}))
            return played;
        // Strikes vary by a few milliseconds, so the order of simultaneous strikes may change. The first five
        // are simultaneous.
        QList<QByteArray> strikes;
        while (strikes.size() < 5) {
            const QByteArray datagram = receive();
            if (datagram.size() == 7)
                break;
            if (datagram.startsWith(testsupport::datagram("IM AC 9909")))
                strikes.append(datagram.mid(6));
        }
        m_process.kill();
        m_process.waitForFinished();
        while (m_socket->hasPendingDatagrams())
            m_socket->readDatagram(nullptr, 0);
        std::sort(strikes.begin(), strikes.end());
        for (const QByteArray &strike : qAsConst(strikes))
            played += strike;
        return played;
    };
    const QByteArray first = hits(QStringLiteral("4"));
    QCOMPARE(first.size(), 10);
    QCOMPARE(hits(QStringLiteral("4")), first);
    QVERIFY(hits(QStringLiteral("5")) != first);
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "tst_program.moc"
