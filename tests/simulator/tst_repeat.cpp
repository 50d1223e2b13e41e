// Blocks of a scenario that are repeated, and the report of all faults of a scenario.
#include "peer.h"

#include "simulator/scenarioplayer.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace simulated;

class RepeatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plays_data();
    void plays();
    void playsInTime();
    void waitsInEveryRound();
    void leavesTheEventLoopRunning();
    void stopsAtAFailedWait();
    void playsAppendedBlocks();
    void readsTypedLines();
    void reportsAllFaults_data();
    void reportsAllFaults();
    void reportsNoMoreThanAHundredFaults();
    void refusesAnyDepth();
    void namesTheFileOfEachFault();

private:
    static QStringList played(const QString &text);
};

// What a scenario of "print" lines prints.
QStringList RepeatTest::played(const QString &text)
{
    SoundEngine engine;
    Scenario scenario;
    QString problem;
    if (!scenario.parse(text, &problem))
        return {problem};
    ScenarioPlayer player(scenario, &engine);
    QStringList lines;
    connect(&player, &ScenarioPlayer::printed, &player,
            [&lines](const QStringList &printed) { lines += printed; });
    QSignalSpy finished(&player, &ScenarioPlayer::finished);
    player.start();
    if (!QTest::qWaitFor([&] { return !finished.isEmpty(); }, 20000))
        lines.append(QStringLiteral("did not finish"));
    return lines;
}

void RepeatTest::plays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("printed");
    const auto row = [](const char *name, const char *text, const char *printed) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(printed);
    };
    row("once", "repeat 1\nprint a\nend\n", "a");
    row("three times", "print x\nrepeat 3\nprint a\nprint b\nend\nprint y\n", "x a b a b a b y");
    row("nested", "repeat 2\nprint a\nrepeat 3 # inner\n\nprint b\nend\nprint c\nend", "a b b b c a b b b c");
    row("block alone in a block", "repeat 2\nrepeat 2\nprint a\nend\nend\n", "a a a a");
    row("two blocks", "repeat 2\nprint a\nend\nrepeat 0x2\nprint b\nend", "a a b b");
    row("indented", "  repeat 2\n\tprint a\n  end\n", "a a");
    row("deepest",
        "repeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\n"
        "repeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 1\nrepeat 2\nprint "
        "a\nend\nend\nend\nend\nend\nend\nend\n"
        "end\nend\nend\nend\nend\nend\nend\nend\nend\n",
        "a a");
}

void RepeatTest::plays()
{
    QFETCH(QString, text);
    QFETCH(QString, printed);
    QCOMPARE(played(text).join(QLatin1Char(' ')), printed);
}

void RepeatTest::playsInTime()
{
    QElapsedTimer time;
    time.start();
    QCOMPARE(played(QStringLiteral("repeat 3\nafter 50 print a\nend\nat 10 print b\n")).size(), 4);
    QVERIFY(time.elapsed() >= 140);
}

void RepeatTest::waitsInEveryRound()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    Scenario scenario;
    QString problem;
    QVERIFY(
        scenario.parse(QStringLiteral("repeat 2\nwait-for param 0x38 7\nbeat 1\nend\nbeat 2\n"), &problem));
    ScenarioPlayer player(scenario, &engine);
    player.start();
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QTRY_COMPARE(peer.received, QList<QByteArray>{datagram("BT AC 0001 0000")});
    QCOMPARE(peer.take(), QList<QByteArray>{datagram("BT AC 0001 0000")});
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    const QList<QByteArray> rest{datagram("BT AC 0001 0000"), datagram("BT AC 0002 0000")};
    QTRY_COMPARE(peer.received, rest);
}

// Waits that are satisfied at once, in ten to the power of twelve rounds.
void RepeatTest::leavesTheEventLoopRunning()
{
    SoundEngine engine;
    engine.setModule(QHostAddress(QHostAddress::LocalHost), 9);
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("repeat 1000000\nrepeat 1000000\nwait-for module\nend\nend\n"),
                           &problem));
    ScenarioPlayer player(scenario, &engine);
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(1);
    player.start();
    QTRY_VERIFY(ticks >= 10);
}

void RepeatTest::stopsAtAFailedWait()
{
    SoundEngine engine;
    Scenario scenario;
    QString problem;
    QVERIFY(scenario.parse(QStringLiteral("repeat 5\nwait-for module within 20\nend\n"), &problem));
    ScenarioPlayer player(scenario, &engine);
    QSignalSpy failed(&player, &ScenarioPlayer::failed);
    player.start();
    QTRY_COMPARE(failed.size(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             QStringLiteral("scenario line 2: wait-for module within 20: timed out"));
    // As a player of typed lines does: the next round waits as well.
    player.proceed();
    QTRY_COMPARE(failed.size(), 2);
}

void RepeatTest::playsAppendedBlocks()
{
    SoundEngine engine;
    ScenarioPlayer player(Scenario(), &engine);
    QStringList lines;
    connect(&player, &ScenarioPlayer::printed, &player,
            [&lines](const QStringList &printed) { lines += printed; });
    player.start();
    StepReader reader(StepReader::Source::Typed);
    const auto append = [&](const char *line) {
        QString problem;
        QVERIFY2(reader.take(QString::fromLatin1(line), 0, &problem), qPrintable(problem));
        const auto steps = reader.takeSteps();
        for (const ScenarioStep &step : steps)
            player.append(step);
    };
    append("repeat 2");
    append("print a");
    QCoreApplication::processEvents();
    QCOMPARE(lines, QStringList()); // waits for its end
    append("end");
    append("print b");
    const QStringList first{QStringLiteral("a"), QStringLiteral("a"), QStringLiteral("b")};
    QTRY_COMPARE(lines, first);
    // Thousands of typed lines, of which the played ones are removed.
    for (int i = 0; i < 5000; ++i)
        append("print c");
    QTRY_COMPARE(lines.size(), 5003);
}

void RepeatTest::readsTypedLines()
{
    StepReader reader(StepReader::Source::Typed);
    QString problem;
    QVERIFY(!reader.take(QStringLiteral("repeat many"), 0, &problem));
    QCOMPARE(problem, QStringLiteral("usage: repeat N, from 1 to 1000000"));
    QCOMPARE(reader.openLine(), -1);
    QVERIFY(reader.take(QStringLiteral("repeat 2"), 0, &problem));
    QCOMPARE(reader.openLine(), 0);
    QVERIFY(!reader.take(QStringLiteral("at 5 beat 1"), 0, &problem));
    QCOMPARE(problem, QStringLiteral("at is not possible within repeat; use after"));
    QVERIFY(!reader.take(QStringLiteral("end now"), 0, &problem));
    QCOMPARE(problem, QStringLiteral("usage: end"));
    QVERIFY(reader.take(QStringLiteral("   # nothing"), 0, &problem));
    QVERIFY(reader.take(QStringLiteral("end"), 0, &problem));
    QVERIFY(reader.takeSteps().isEmpty());
    // Typed times may go back.
    QVERIFY(reader.take(QStringLiteral("at 500 beat 1"), 0, &problem));
    QVERIFY(reader.take(QStringLiteral("at 5 beat 1"), 0, &problem));
    QCOMPARE(reader.takeSteps().size(), 2);
}

void RepeatTest::reportsAllFaults_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *text, const char *problem) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(problem);
    };
    row("every line", "dance\nbeat 1\nstrike\nsing # too\n",
        "line 1: unknown command \"dance\"\nline 3: usage: strike PAD|NOTE|all [VELOCITY]\n"
        "line 4: unknown command \"sing\"");
    row("no number", "repeat\nbeat 1\nend\n", "line 1: usage: repeat N, from 1 to 1000000");
    row("no round", "repeat 0\nbeat 1\nend\n", "line 1: usage: repeat N, from 1 to 1000000");
    row("too many rounds", "repeat 1000001\nbeat 1\nend\n", "line 1: usage: repeat N, from 1 to 1000000");
    row("two numbers", "repeat 2 3\nbeat 1\nend\n", "line 1: usage: repeat N, from 1 to 1000000");
    row("repeat in a time", "after 5 repeat 2\nbeat 1\n", "line 1: unknown command \"repeat\"");
    row("end without repeat", "beat 1\nend\nend\n", "line 2: end without repeat\nline 3: end without repeat");
    row("end with an argument", "repeat 2\nbeat 1\nend 2\nend\n", "line 3: usage: end");
    row("repeat without end", "repeat 2\nbeat 1\nrepeat 3\nbeat 2\nstrike\n",
        "line 1: repeat without end\nline 3: repeat without end\n"
        "line 5: usage: strike PAD|NOTE|all [VELOCITY]");
    row("nothing to repeat", "repeat 2\n# beat 1\nend\n", "line 3: nothing to repeat");
    row("only faults to repeat", "repeat 2\ndance\nend\n", "line 2: unknown command \"dance\"");
    row("nothing in a block with a fault", "repeat 2\ndance\nrepeat 2\nend\nend\n",
        "line 2: unknown command \"dance\"\nline 4: nothing to repeat");
    row("time in a block", "repeat 2\nat 500 beat 1\nend\n",
        "line 2: at is not possible within repeat; use after");
    row("times go back twice", "at 500 beat 1\nat 400 beat 1\nat 300 beat 1\n",
        "line 2: time 400 is before the previous time 500\n"
        "line 3: time 300 is before the previous time 400");
}

void RepeatTest::reportsAllFaults()
{
    QFETCH(QString, text);
    Scenario scenario;
    QString problem;
    QVERIFY(!scenario.parse(text, &problem));
    QTEST(problem, "problem");
    QVERIFY(scenario.steps().isEmpty());
}

void RepeatTest::reportsNoMoreThanAHundredFaults()
{
    Scenario scenario;
    QString problem;
    QVERIFY(!scenario.parse(QStringLiteral("dance\n").repeated(100), &problem));
    QCOMPARE(problem.count(QLatin1Char('\n')), 99);
    QVERIFY(problem.endsWith(QStringLiteral("\nline 100: unknown command \"dance\"")));
    QVERIFY(!scenario.parse(QStringLiteral("dance\n").repeated(1000), &problem));
    QCOMPARE(problem.count(QLatin1Char('\n')), 99);
    QVERIFY(problem.endsWith(QStringLiteral("\nline 99: unknown command \"dance\"\nand 901 more faults")));
}

void RepeatTest::refusesAnyDepth()
{
    Scenario scenario;
    QString problem;
    QVERIFY(!scenario.parse(QStringLiteral("repeat 1\n").repeated(17) + QStringLiteral("beat 1\n") +
                                QStringLiteral("end\n").repeated(17),
                            &problem));
    QCOMPARE(problem, QStringLiteral("line 17: repeat within more than 15 others"));
    // Must not overflow the stack.
    QVERIFY(!scenario.parse(QStringLiteral("repeat 1\n").repeated(300000) + QStringLiteral("beat 1\n") +
                                QStringLiteral("end\n").repeated(300000),
                            &problem));
    QVERIFY(problem.startsWith(QStringLiteral("line 17: repeat within more than 15 others\n")));
}

void RepeatTest::namesTheFileOfEachFault()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("bad.scenario"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("dance\n\nsing\n");
    file.close();
    Scenario scenario;
    QString problem;
    QVERIFY(!scenario.load(path, &problem));
    QCOMPARE(problem, QStringLiteral("scenario %1, line 1: unknown command \"dance\"\n"
                                     "scenario %1, line 3: unknown command \"sing\"")
                          .arg(path));
}

QTEST_GUILESS_MAIN(RepeatTest)
#include "tst_repeat.moc"
