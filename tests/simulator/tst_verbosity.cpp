// What zelta-engine-sim prints at each level, and its timestamps.
#include "programrun.h"

#include <QRegularExpression>
#include <QTest>

class VerbosityTest : public QObject, private ProgramRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(prepare()); }
    void cleanup() { end(); }
    void printsAtEachLevel_data();
    void printsAtEachLevel();
    void printsOneLineForAFile_data();
    void printsOneLineForAFile();
    void stampsEveryLine();
    void refuses_data();
    void refuses();

private:
    QByteArrayList linesAfterTheModule() const;
};

// Without the line of the module, whose port varies, and the counters.
QByteArrayList VerbosityTest::linesAfterTheModule() const
{
    QByteArrayList lines = m_output.trimmed().split('\n');
    while (!lines.isEmpty() && !lines.takeFirst().startsWith("module ")) {
    }
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const QByteArray &line) { return line.startsWith("summary "); }),
                lines.end());
    return lines;
}

void VerbosityTest::printsAtEachLevel_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArrayList>("lines");
    const QString verbose = QStringLiteral("--verbose");
    const QString verbosity = QStringLiteral("--verbosity");
    const QByteArray heard = "mixer master out level 100";
    const QByteArray query = "query VN: sound engine version";
    const QByteArray violation = "violation: unknown header 0x0102: 01 02";
    const QByteArrayList silent{violation, "done"};
    const QByteArrayList received{heard, query, violation, "done"};
    const QByteArrayList both{"sent: tempo 120",
                              heard,
                              query,
                              "sent: reply VN: sound engine version 1.0",
                              violation,
                              "sent: pad 1 snare zone 0 velocity 100",
                              "sent: output meters 70 35 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0",
                              "sent: controller 99 value 18",
                              "sent: controller 98 value 52",
                              "sent: test command 12 34 56",
                              "done"};
    QTest::newRow("none") << QStringList() << silent;
    QTest::newRow("--verbosity 0") << QStringList{verbosity, QStringLiteral("0")} << silent;
    QTest::newRow("--verbose") << QStringList{verbose} << received;
    QTest::newRow("--verbosity 1") << QStringList{verbosity, QStringLiteral("1")} << received;
    QTest::newRow("--verbose twice") << QStringList{verbose, verbose} << both;
    QTest::newRow("--verbosity 2") << QStringList{verbosity, QStringLiteral("2")} << both;
    QTest::newRow("--verbose three times") << QStringList{verbose, verbose, verbose} << both;
    QTest::newRow("--verbose five times") << QStringList{verbose, verbose, verbose, verbose, verbose} << both;
    QTest::newRow("--verbosity 3") << QStringList{verbosity, QStringLiteral("3")} << both;
}

void VerbosityTest::printsAtEachLevel()
{
    QFETCH(QStringList, arguments);
    QVERIFY(start(QStringList{QStringLiteral("--no-groove")} + arguments));
    type("meters off\n violations\n");
    QVERIFY(waitForLine("violations 0\n")); // from here on the engine only answers
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(receive(), datagram("TM AC 0078 0000"));
    send(datagram("VN 0000"));
    QCOMPARE(receive(), datagram("VN AC 0001 0000"));
    send(hex("0102"));
    QVERIFY(waitForLine("violation: "));
    type("strike snare 100\nmeters 70 35\nmeters off\ntestcommand 12 34 56\nprint done\n");
    QVERIFY(waitForLine("done\n"));
    QTEST(linesAfterTheModule(), "lines");
}

void VerbosityTest::printsOneLineForAFile_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<QByteArrayList>("lines");
    const QByteArray file =
        "file TB 3 bytes whole packets 1 repeated 0 gaps 0 resend-requests 1 status 0x0000";
    const QByteArray note = "note: requested a resend from packet 0";
    QTest::newRow("none") << QStringLiteral("0") << QByteArrayList{file};
    QTest::newRow("heard") << QStringLiteral("1") << QByteArrayList{note, file};
    QTest::newRow("said") << QStringLiteral("2")
                          << QByteArrayList{"sent: tempo 120", note, "sent: transfer resend from packet 0",
                                            file, "sent: transfer end acknowledged, status 0x0000"};
    QTest::newRow("packets") << QStringLiteral("3")
                             << QByteArrayList{"sent: tempo 120",
                                               "transfer start TB, 3 bytes",
                                               "transfer data TB, packet 0, 4 bytes",
                                               note,
                                               "sent: transfer resend from packet 0",
                                               "transfer end TB, checksum 0x00000402",
                                               file,
                                               "sent: transfer end acknowledged, status 0x0000"};
}

void VerbosityTest::printsOneLineForAFile()
{
    QFETCH(QString, level);
    QVERIFY(start({QStringLiteral("--no-groove"), QStringLiteral("--fail"), QStringLiteral("resend=0"),
                   QStringLiteral("--verbosity"), level}));
    type("meters off\n violations\n");
    QVERIFY(waitForLine("violations 0\n"));
    send(datagram("DS TB 00000003"));
    QCOMPARE(receive(), datagram("TM AC 0078 0000"));
    send(datagram("DC TB 00000000 0002 01020300"));
    QCOMPARE(receive(), datagram("DC AC 0000 00BE"));
    send(datagram("DE TB 00000402"));
    QCOMPARE(receive(), datagram("DE AC 0000 0000"));
    m_process.terminate();
    QVERIFY(finish());
    QTEST(linesAfterTheModule(), "lines");
}

void VerbosityTest::stampsEveryLine()
{
    QVERIFY(start({QStringLiteral("--timestamps"), QStringLiteral("--verbose"), QStringLiteral("--verbose"),
                   QStringLiteral("--no-groove")}));
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine(" sent: tempo 120\n"));
    QVERIFY(waitForLine(" mixer master out level 100\n"));
    type("help\nquit\n");
    QVERIFY(finish());
    const QRegularExpression stamped(QStringLiteral("^[0-2]\\d:[0-5]\\d:[0-5]\\d\\.\\d{3} \\S"));
    const QStringList lines = QString::fromUtf8(m_output).trimmed().split(QLatin1Char('\n'));
    for (const QString &line : lines)
        QVERIFY2(stamped.match(line).hasMatch(), qPrintable(line));
    QVERIFY(lines.last().endsWith(QStringLiteral(" summary violations 0")));
}

void VerbosityTest::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const QString verbosity = QStringLiteral("--verbosity");
    QTest::newRow("level 4") << QStringList{verbosity, QStringLiteral("4")}
                             << QByteArray("--verbosity takes a number from 0 to 3, not \"4\"");
    QTest::newRow("level below 0") << QStringList{verbosity, QStringLiteral("-1")}
                                   << QByteArray("--verbosity takes a number from 0 to 3, not \"-1\"");
    QTest::newRow("no number") << QStringList{verbosity, QStringLiteral("all")}
                               << QByteArray("--verbosity takes a number from 0 to 3, not \"all\"");
    QTest::newRow("both options") << QStringList{verbosity, QStringLiteral("2"), QStringLiteral("--verbose")}
                                  << QByteArray("--verbose and --verbosity exclude each other");
}

void VerbosityTest::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    m_process.setArguments(arguments);
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_process.readAllStandardError(), "zelta-engine-sim: " + message + "\n");
}

QTEST_GUILESS_MAIN(VerbosityTest)
#include "tst_verbosity.moc"
