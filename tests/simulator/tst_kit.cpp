// zelta-engine-sim with an electronic drum kit: --midi-in and --note-map.
#include "programrun.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class KitTest : public QObject, private ProgramRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(prepare()); }
    void cleanup() { end(); }
    void plays();
    void startsWithoutTheDevice();
    void refuses_data();
    void refuses();
};

void KitTest::plays()
{
    const QTemporaryDir directory;
    const QString fifo = directory.filePath(QStringLiteral("kit"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString map = directory.filePath(QStringLiteral("kit.map"));
    QFile notes(map);
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write("60 snare # the left pad\n");
    notes.close();

    QVERIFY(
        start({QStringLiteral("--no-groove"), QStringLiteral("--midi-in"), fifo, QStringLiteral("--note-map"),
               map, QStringLiteral("--verbose"), QStringLiteral("--verbose")}));
    QVERIFY(waitForLine("midi-in " + QFile::encodeName(fifo) + ": waiting for a writer\n"));
    type("meters off\nwait-for strike snare\nprint struck\n");
    send(datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(waitForLine("sent: tempo 120\n"));
    QFile kit(fifo);
    QVERIFY(kit.open(QIODevice::WriteOnly));
    kit.write(hex("99 3C 64 F8 24 50 B9 04 40 A9 31 7F C9 02"));
    kit.close();
    QVERIFY(waitForLine("sent: program change 2\n"));
    QVERIFY(waitForLine("\nstruck\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    for (const char *line :
         {"sent: pad 1 snare zone 0 velocity 100\n", "sent: pad 0 kick zone 0 velocity 80\n",
          "sent: controller 4 value 64\n", "sent: pad 8 crash1 pressure 127\n", "summary sent-pad-hits 2\n"})
        QVERIFY2(m_output.contains(line), line);
}

void KitTest::startsWithoutTheDevice()
{
    QVERIFY(start({QStringLiteral("--midi-in"), QStringLiteral("/nowhere/midi")}));
    QVERIFY(waitForLine("midi-in /nowhere/midi: No such file or directory\n"));
    m_process.terminate();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 0);
    QCOMPARE(m_output.count("midi-in"), 1);
}

void KitTest::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const QString midiIn = QStringLiteral("--midi-in");
    const QString noteMap = QStringLiteral("--note-map");
    QTest::newRow("no path") << QStringList{midiIn, QString()} << QByteArray("--midi-in takes a path");
    QTest::newRow("map alone") << QStringList{noteMap, QStringLiteral("kit.map")}
                               << QByteArray("--note-map needs --midi-in");
    QTest::newRow("no map") << QStringList{midiIn, QStringLiteral("/dev/null"), noteMap, QString()}
                            << QByteArray("--note-map takes a file");
    QTest::newRow("map that is not there")
        << QStringList{midiIn, QStringLiteral("/dev/null"), noteMap, QStringLiteral("/nowhere/kit.map")}
        << QByteArray("note map /nowhere/kit.map: No such file or directory");
}

void KitTest::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    m_process.setArguments(arguments);
    m_process.start();
    QVERIFY(finish());
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_process.readAllStandardError(), "zelta-engine-sim: " + message + "\n");
}

QTEST_GUILESS_MAIN(KitTest)
#include "tst_kit.moc"
