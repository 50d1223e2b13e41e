// Commands and scenarios, from text to datagrams.
#include "peer.h"

#include "simulator/commands.h"
#include "simulator/scenarioplayer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <unistd.h>

using namespace simulated;

class ScenarioTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sends_data();
    void sends();
    void strikesEverything();
    void shows();
    void refusesCommands_data();
    void refusesCommands();
    void everyCommandIsInTheHelp();
    void saysWhyNothingIsSent();
    void refusesScenarios_data();
    void refusesScenarios();
    void playsInTime();
    void waitsForParameters();
    void satisfiesOneWaitWithOneParameter();
    void doesNotGrowWithTheParameters();
    void waitsForATransfer();
    void failsWhenAWaitRunsOut();
    void proceedsAfterAFailedWait();
    void reportsCommandsThatAreNotSent();
    void playsAppendedSteps();

private:
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
};

void ScenarioTest::init()
{
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
    m_engine->setModule(QHostAddress(QHostAddress::LocalHost), m_peer->port());
}

void ScenarioTest::cleanup()
{
    m_peer.reset();
    m_engine.reset();
}

void ScenarioTest::sends_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    const auto row = [](const char *line, const QList<QByteArray> &datagrams) {
        QTest::newRow(line) << QString::fromLatin1(line) << datagrams;
    };
    row("strike snare 100", {datagram("IM AC 9909 6426")});
    row("strike 38", {datagram("IM AC 9909 6426")});
    row("strike 0x26 1", {datagram("IM AC 9909 0126")});
    row("strike ride-bell 5 # ping", {datagram("IM AC 9909 0535")});
    row("choke crash1", {datagram("IM AC A90A 7F31")});
    row("choke 57 10", {datagram("IM AC A90A 0A39")});
    row("hihat 64", {datagram("IM AC B90B 4004")});
    row("controller 1 2", {datagram("IM AC B90B 0201")});
    row("program 5", {datagram("IM AC C90C 0005")});
    row("switch power 1", {datagram("SW AC 5057 0001")});
    row("switch foot1 1", {datagram("SW AC 4631 0001")});
    row("switch foot2 1", {datagram("SW AC 4632 0001")});
    row("switch aux3 1", {datagram("SW AC 4133 0001")});
    row("switch aux4 1", {datagram("SW AC 4134 0001")});
    row("switch headphone 1", {datagram("SW AC 4850 0001")});
    row("switch mixin 1", {datagram("SW AC 4D49 0001")});
    row("switch home 0", {datagram("SW AC 484D 0000")});
    row("switch ZZ 65535", {datagram("SW AC 5A5A FFFF")});
    row("pot 0 +", {datagram("CO AC 0000 0001")});
    row("pot 3 -", {datagram("CO AC 0003 0000")});
    row("tempo 120", {datagram("TM AC 0078 0000")});
    row("tempo 0", {datagram("TM AC 0000 0000")});
    row("beat 1", {datagram("BT AC 0001 0000")});
    row("meters 70 0x23",
        {datagram("DR 0046 0023 0000000000000000 0000000000000000 0000000000000000 0000000000000000")});
    row("comp master 10 20 30 40 50 60", {datagram("CR 0000 000A 0014 001E 0028 0032 003C")});
    row("comp monitor 10", {datagram("CR 0001 000A 0000 0000 0000 0000 0000")});
    row("comp headphone 10", {datagram("CR 0002 000A 0000 0000 0000 0000 0000")});
    row("comp pad 10", {datagram("CR 0003 000A 0000 0000 0000 0000 0000")});
    row("comp 7 10", {datagram("CR 0007 000A 0000 0000 0000 0000 0000")});
    row("flash 1 2", {datagram("FR AC 0001 0002")});
    row("testcommand 12 34 56",
        {datagram("IM AC B90B 1263"), datagram("IM AC B90B 3462"), datagram("IM AC B90B 5606")});
    row("sysex F0 7E F7", {datagram("IM AC F007 F77E")});
    row("event AB 0x0102 772", {datagram("AB AC 0102 0304")});
    row("event SW PW 1", {datagram("SW AC 5057 0001")});
    row("send 01 02 ff", {hex("0102FF")});
    row("send 0102FF", {hex("0102FF")});
}

void ScenarioTest::sends()
{
    QFETCH(QString, line);
    Command command;
    QString problem;
    QVERIFY2(parseCommand(line, &command, &problem), qPrintable(problem));
    QCOMPARE(m_peer->take(), QList<QByteArray>()); // parsing sends nothing
    const CommandResult result = command.run(*m_engine);
    QCOMPARE(result.lines, QStringList());
    QVERIFY(result.isSent);
    QTEST(m_peer->take(), "datagrams");
    QVERIFY(!command.isQuit);
}

void ScenarioTest::strikesEverything()
{
    Command command;
    QString problem;
    QVERIFY(parseCommand(QStringLiteral("strike all 64"), &command, &problem));
    QCOMPARE(command.run(*m_engine).lines, QStringList());
    const auto taken = m_peer->take();
    QVector<int> notes;
    for (const QByteArray &datagram : taken) {
        QCOMPARE(datagram.left(7), testsupport::datagram("IM AC 9909 40"));
        notes.append(datagram.at(7));
    }
    std::sort(notes.begin(), notes.end());
    const QVector<int> expected = {17, 18, 19, 21, 22, 23, 24, 25, 26, 36, 37, 38, 39,
                                   40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52,
                                   53, 55, 57, 58, 59, 88, 89, 90, 91, 92, 93, 94, 95};
    QCOMPARE(notes, expected);
}

void ScenarioTest::shows()
{
    const auto run = [this](const char *line) {
        Command command;
        QString problem;
        return parseCommand(QString::fromLatin1(line), &command, &problem) ? command.run(*m_engine).lines
                                                                           : QStringList(problem);
    };
    QCOMPARE(run("param 0x38 0x07"), QStringList(QStringLiteral("never received")));
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(m_peer->send("IM 0004 0BB96325 0BB96226 0BB92668 0BB90607"));
    QCOMPARE(run("param 0x38 0x07"), QStringList(QStringLiteral("mixer master out level 100")));
    QCOMPARE(run("param 56 7"), QStringList(QStringLiteral("mixer master out level 100")));
    QCOMPARE(run("params"), QStringList({QStringLiteral("pad 38 EQ mid frequency 1000"),
                                         QStringLiteral("mixer master out level 100")}));
    QCOMPARE(run("violations"), QStringList(QStringLiteral("violations 0")));
    QVERIFY(m_peer->send("0102"));
    QCOMPARE(run("violations"),
             QStringList({QStringLiteral("unknown header 0x0102: 01 02"), QStringLiteral("violations 1")}));
    QVERIFY(run("summary").contains(QStringLiteral("summary received-parameters 2")));
    QVERIFY(run("summary").contains(QStringLiteral("summary violations 1")));
    QCOMPARE(run("files"), QStringList());
    QVERIFY(m_peer->send("DS TB 00000003"));
    QVERIFY(m_peer->send("DC TB 00000000 0002 01020300"));
    QVERIFY(m_peer->send("DE TB 00000402"));
    QCOMPARE(run("files"),
             QStringList(QStringLiteral(
                 "file TB 3 bytes whole packets 1 repeated 0 gaps 0 resend-requests 0 status 0x0000")));
    QCOMPARE(run("module"), QStringList(QStringLiteral("module 127.0.0.1:%1").arg(m_peer->port())));

    QCOMPARE(run("print two  words, 100 % # not this"), QStringList(QStringLiteral("two words, 100 %")));
    QCOMPARE(run("groove on"), QStringList());
    QVERIFY(m_engine->isGroovePlaying());
    QCOMPARE(run("groove off"), QStringList());
    QVERIFY(!m_engine->isGroovePlaying());
    m_peer->take();
    run("version zelta 1 5");
    run("hihat-raw 521");
    QVERIFY(m_peer->send("VN 0000"));
    QVERIFY(m_peer->send("HL 0000"));
    const QList<QByteArray> answers = {datagram("VN AC 0001 0005"), datagram("HL AC 0209 0000")};
    QCOMPARE(m_peer->take(), answers);
    run("fail no-query-reply");
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    run("fail none");
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take().size(), 1);
    // One mode is removed, another one stays.
    run("fail no-query-reply");
    run("fail bad-checksum");
    run("fail no-query-reply");
    run("fail no-query-reply off");
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take().size(), 1);
    QCOMPARE(m_engine->failures().active().size(), 1);
    QCOMPARE(m_engine->failures().active().constFirst().name, QStringLiteral("bad-checksum"));
}

void ScenarioTest::refusesCommands_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line : {"",
                             "dance",
                             "strike",
                             "strike cowbell",
                             "strike 128",
                             "strike -1",
                             "strike +38",
                             "strike snare 128",
                             "strike snare loud",
                             "strike snare 1 2",
                             "choke",
                             "hihat 128",
                             "hihat +1",
                             "hihat -0",
                             "switch power",
                             "switch lights 1",
                             "switch power 2",
                             "switch foot1 65535",
                             "switch ZZ 65536",
                             "pot 0",
                             "pot 0 up",
                             "pot 4 +",
                             "tempo fast",
                             "tempo 65536",
                             "meters 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19",
                             "meters loud",
                             "comp bus 1",
                             "comp master",
                             "comp master 1 2 3 4 5 6 7",
                             "flash 1",
                             "version zelta 1",
                             "version bios 1 2",
                             "hihat-raw",
                             "testcommand 12 34",
                             "testcommand 12 34 5",
                             "sysex",
                             "sysex F",
                             "send",
                             "send xy",
                             "event A 1 2",
                             "event AB 1",
                             "groove",
                             "groove maybe",
                             "fail",
                             "fail explode",
                             "fail resend=x",
                             "fail resend=+5",
                             "fail resend=16777216",
                             "fail resend=5,",
                             "fail drop=5,9",
                             "fail resend on",
                             "fail explode off",
                             "fail resend=5 off",
                             "fail none off",
                             "param 1",
                             "param 256 0",
                             "print",
                             "quit now"}) {
        QTest::newRow(qstrlen(line) > 0 ? line : "empty") << QString::fromLatin1(line);
    }
}

void ScenarioTest::refusesCommands()
{
    QFETCH(QString, line);
    Command command;
    QString problem;
    QVERIFY(!parseCommand(line, &command, &problem));
    QVERIFY(!problem.isEmpty());
    QVERIFY(!problem.contains(QLatin1Char('\n')));
}

void ScenarioTest::everyCommandIsInTheHelp()
{
    Command helpCommand;
    QString helpProblem;
    QVERIFY(parseCommand(QStringLiteral("help"), &helpCommand, &helpProblem));
    const QStringList help = helpCommand.run(*m_engine).lines;
    for (const char *name : {"help ", "strike ", "switch ", "pot ", "fail ", "quit ", "at ", "after ",
                             "wait-for ", "repeat ", "end ", "print "}) {
        const bool listed = std::any_of(help.begin(), help.end(), [&](const QString &line) {
            return line.startsWith(QLatin1String(name));
        });
        QVERIFY2(listed, name);
    }
    Command command;
    QString problem;
    QVERIFY(parseCommand(QStringLiteral("quit"), &command, &problem));
    QVERIFY(command.isQuit);
}

void ScenarioTest::saysWhyNothingIsSent()
{
    SoundEngine engine;
    Command command;
    QString problem;
    QVERIFY(parseCommand(QStringLiteral("strike snare"), &command, &problem));
    CommandResult result = command.run(engine);
    QCOMPARE(result.lines, QStringList(QStringLiteral("not sent: no module is known yet")));
    QVERIFY(!result.isSent);

    // A socket on the loopback network cannot send to another network.
    QVERIFY(Peer::listen(&engine));
    engine.setModule(QHostAddress(QStringLiteral("192.0.2.1")), 9);
    result = command.run(engine);
    QVERIFY(!result.isSent);
    QCOMPARE(result.lines, QStringList(QStringLiteral("not sent: ") + engine.errorString()));
    QVERIFY(!engine.errorString().isEmpty() && engine.errorString() != QLatin1String("Unknown error"));

    Peer peer(&engine);
    QVERIFY(engine.setFailure(QStringLiteral("vanish=0")));
    QVERIFY(peer.send("DC TB 00000000 0001 0000"));
    QCOMPARE(command.run(engine).lines,
             QStringList(QStringLiteral("not sent: a failure mode has made the engine vanish")));
}

void ScenarioTest::refusesScenarios_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *text, const char *problem) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(problem);
    };
    row("unknown command", "# good\nstrike snare\n\nat 5 dance\n", "line 4: unknown command \"dance\"");
    row("bad argument", "strike snare 200", "line 1: \"200\" is not a number from 0 to 127");
    row("no time", "at strike snare", "line 1: usage: at MS COMMAND");
    row("no command", "after 100", "line 1: usage: after MS COMMAND");
    row("negative time", "after -5 beat 1", "line 1: usage: after MS COMMAND");
    row("time goes back", "at 500 beat 1\nat 400 beat 2\n",
        "line 2: time 400 is before the previous time 500");
    row("wait for nothing", "wait-for",
        "line 1: usage: wait-for module|transfer|param|strike|switch [...] [within MS]");
    row("wait for half a parameter", "wait-for param 0x38",
        "line 1: usage: wait-for param HIGH LOW [VALUE] [within MS]");
    row("wait for something else", "wait-for rain",
        "line 1: usage: wait-for module|transfer|param|strike|switch [...] [within MS]");
    row("wait for two modules", "wait-for module two", "line 1: usage: wait-for module [within MS]");
    row("wait for no pad", "wait-for strike cowbell",
        "line 1: usage: wait-for strike [PAD|NOTE] [within MS]");
    row("wait for two pads", "wait-for strike snare kick",
        "line 1: usage: wait-for strike [PAD|NOTE] [within MS]");
    row("wait for no switch", "wait-for switch lights",
        "line 1: usage: wait-for switch [NAME [VALUE]] [within MS]");
    row("wait for a switch that cannot be", "wait-for switch power 2",
        "line 1: usage: wait-for switch [NAME [VALUE]] [within MS]");
    row("within nothing", "wait-for module within",
        "line 1: \"within\" is followed by milliseconds from 1 and nothing else");
    row("within no time", "wait-for module within 0",
        "line 1: \"within\" is followed by milliseconds from 1 and nothing else");
}

void ScenarioTest::refusesScenarios()
{
    QFETCH(QString, text);
    Scenario scenario;
    QString problem;
    QVERIFY(!scenario.parse(text, &problem));
    QTEST(problem, "problem");
}

void ScenarioTest::playsInTime()
{
    Scenario scenario;
    QString problem;
    QVERIFY2(
        scenario.parse(QStringLiteral("beat 1\nat 200 beat 2 # comment\nafter 100 beat 3\nat 350 beat 4\n"),
                       &problem),
        qPrintable(problem));
    ScenarioPlayer player(scenario, m_engine.get());
    QSignalSpy finished(&player, &ScenarioPlayer::finished);
    QElapsedTimer time;
    time.start();
    player.start();
    // Only "too early" is checked: a busy machine may be late.
    QTRY_VERIFY(m_peer->received.size() >= 2);
    QVERIFY(time.elapsed() >= 190);
    QTRY_VERIFY(m_peer->received.size() >= 3);
    QVERIFY(time.elapsed() >= 290);
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(time.elapsed() >= 340);
    const QList<QByteArray> expected = {datagram("BT AC 0001 0000"), datagram("BT AC 0002 0000"),
                                        datagram("BT AC 0003 0000"), datagram("BT AC 0004 0000")};
    QCOMPARE(m_peer->take(), expected);
}

void ScenarioTest::waitsForParameters()
{
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(
        QStringLiteral("wait-for param 0x38 7\nbeat 1\nwait-for param 0x38 7 50\nbeat 2\n"), &problem));
    ScenarioPlayer player(scenario, m_engine.get());
    player.start();
    QVERIFY(m_peer->send("IM 0003 0BB96339 0BB96207 0BB90664"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    // Arrives before the second wait begins, and satisfies it.
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90632"));
    QTRY_COMPARE(m_peer->received.size(), 2);
    const QList<QByteArray> expected = {datagram("BT AC 0001 0000"), datagram("BT AC 0002 0000")};
    QCOMPARE(m_peer->take(), expected);
}

void ScenarioTest::satisfiesOneWaitWithOneParameter()
{
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("wait-for param 0x38 7\nbeat 1\nwait-for param 0x38 7\nbeat 2\n"),
                           &problem));
    ScenarioPlayer player(scenario, m_engine.get());
    player.start();
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{datagram("BT AC 0001 0000")});
    // Other parameters do not satisfy it.
    QVERIFY(m_peer->send("IM 0003 0BB96339 0BB96207 0BB90664"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("BT AC 0001 0000")});
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{datagram("BT AC 0002 0000")});
}

// The program also uses players without a scenario, and may run for days.
void ScenarioTest::doesNotGrowWithTheParameters()
{
    const auto residentBytes = [] {
        QFile statistics(QStringLiteral("/proc/self/statm"));
        return statistics.open(QIODevice::ReadOnly)
                   ? statistics.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE)
                   : 0;
    };
    ScenarioPlayer player(Scenario(), m_engine.get());
    Q_EMIT m_engine->parameterReceived(0x38, 7, 0, -1);
    const qint64 before = residentBytes();
    QVERIFY(before > 0);
    for (int i = 0; i < 4000000; ++i)
        Q_EMIT m_engine->parameterReceived(0x38, 7, i & 0x7F, -1);
    QVERIFY(residentBytes() - before < 4 * 1024 * 1024);
}

void ScenarioTest::waitsForATransfer()
{
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("wait-for transfer within 20000\nbeat 1\n"), &problem));
    ScenarioPlayer player(scenario, m_engine.get());
    player.start();
    QVERIFY(m_peer->send("DS TB 00000000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(m_peer->send("DE TB 00000000"));
    QTRY_COMPARE(m_peer->received.size(), 2);
    QCOMPARE(m_peer->received.last(), datagram("BT AC 0001 0000"));
}

void ScenarioTest::failsWhenAWaitRunsOut()
{
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("\nwait-for param 1 2 within 50\nbeat 1\n"), &problem));
    ScenarioPlayer player(scenario, m_engine.get());
    QSignalSpy failed(&player, &ScenarioPlayer::failed);
    player.start();
    QTRY_COMPARE(failed.size(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             QStringLiteral("scenario line 2: wait-for param 1 2 within 50: timed out"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
}

void ScenarioTest::proceedsAfterAFailedWait()
{
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("wait-for param 1 2 within 50\nbeat 1\n"), &problem));
    ScenarioPlayer player(scenario, m_engine.get());
    connect(&player, &ScenarioPlayer::failed, &player, &ScenarioPlayer::proceed);
    player.start();
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{datagram("BT AC 0001 0000")});
}

void ScenarioTest::reportsCommandsThatAreNotSent()
{
    SoundEngine engine; // knows no module
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("summary\n\nstrike snare # too early\nbeat 1\n"), &problem));
    ScenarioPlayer player(scenario, &engine);
    QSignalSpy notSent(&player, &ScenarioPlayer::notSent);
    QSignalSpy finished(&player, &ScenarioPlayer::finished);
    player.start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(notSent.size(), 2);
    QCOMPARE(notSent.at(0).at(0).toString(), QStringLiteral("scenario line 3: strike snare: not sent"));
    QCOMPARE(notSent.at(1).at(0).toString(), QStringLiteral("scenario line 4: beat 1: not sent"));
}

void ScenarioTest::playsAppendedSteps()
{
    ScenarioPlayer player(Scenario(), m_engine.get());
    const auto append = [&player](const char *line) {
        ScenarioStep step;
        QString problem;
        QVERIFY2(parseStep(QString::fromLatin1(line), &step, &problem), qPrintable(problem));
        player.append(step);
    };
    append("beat 1"); // before the start
    player.start();
    append("wait-for param 0x38 7");
    append("beat 2");
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{datagram("BT AC 0001 0000")});
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE(m_peer->received.size(), 2);
    append("beat 3"); // after the last step
    QTRY_COMPARE(m_peer->received.size(), 3);
    QCOMPARE(m_peer->received.at(1), datagram("BT AC 0002 0000"));
    QCOMPARE(m_peer->received.at(2), datagram("BT AC 0003 0000"));
}

QTEST_GUILESS_MAIN(ScenarioTest)
#include "tst_scenario.moc"
