// Note maps of drum kits.
#include "simulator/notemap.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using simulated::NoteMap;

class NoteMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsNotesByDefault();
    void maps();
    void reportsAllFaults_data();
    void reportsAllFaults();
    void reportsNoMoreThanAHundredFaults();
    void loads();
    void refusesFiles();
};

void NoteMapTest::keepsNotesByDefault()
{
    const NoteMap map;
    for (int note = 0; note < 128; ++note)
        QCOMPARE(map.map(note), note);
}

void NoteMapTest::maps()
{
    NoteMap map;
    QString problem;
    QVERIFY2(
        map.parse(QStringLiteral("# my kit\n\n35 36\n  0x26\tsnare-rim # rim\n127 none\n0 127\r\n38\t  0x7F"),
                  &problem) == false,
        "note 38 stands twice");
    QCOMPARE(problem, QStringLiteral("line 7: note 38 already stands in line 4"));
    QCOMPARE(map.map(35), 35); // nothing is changed

    QVERIFY2(map.parse(QStringLiteral("# my kit\n\n35 36\n  0x26\tsnare-rim # rim\n127 none\n0 127\r\n"),
                       &problem),
             qPrintable(problem));
    QCOMPARE(map.map(35), 36);
    QCOMPARE(map.map(38), 40);
    QCOMPARE(map.map(127), -1);
    QCOMPARE(map.map(0), 127);
    QCOMPARE(map.map(1), 1);
}

void NoteMapTest::reportsAllFaults_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *text, const char *problem) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(problem);
    };
    row("one word", "36", "line 1: usage: FROM TO");
    row("three words", "36 38 40", "line 1: usage: FROM TO");
    row("from beyond", "128 36", "line 1: \"128\" is not a note from 0 to 127");
    row("negative", "-1 36", "line 1: \"-1\" is not a note from 0 to 127");
    row("from a pad", "snare 36", "line 1: \"snare\" is not a note from 0 to 127");
    row("to beyond", "36 128", "line 1: \"128\" is neither a pad, nor a note from 0 to 127, nor none");
    row("to nothing", "36 cowbell",
        "line 1: \"cowbell\" is neither a pad, nor a note from 0 to 127, nor none");
    row("all at once", "36\n\n# good\n37 38\nx 38\n37 40\n",
        "line 1: usage: FROM TO\nline 5: \"x\" is not a note from 0 to 127\n"
        "line 6: note 37 already stands in line 4");
}

void NoteMapTest::reportsAllFaults()
{
    QFETCH(QString, text);
    NoteMap map;
    QString problem;
    QVERIFY(!map.parse(text, &problem));
    QTEST(problem, "problem");
    QCOMPARE(map.map(37), 37);
}

void NoteMapTest::reportsNoMoreThanAHundredFaults()
{
    NoteMap map;
    QString problem;
    QVERIFY(!map.parse(QStringLiteral("x\n").repeated(1000), &problem));
    QCOMPARE(problem.count(QLatin1Char('\n')), 99);
    QVERIFY(problem.endsWith(QStringLiteral("\nline 99: usage: FROM TO\nand 901 more faults")));
}

void NoteMapTest::loads()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("kit.map"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("35 kick\n");
    file.close();
    NoteMap map;
    QString problem;
    QVERIFY2(map.load(path, &problem), qPrintable(problem));
    QCOMPARE(map.map(35), 36);
}

void NoteMapTest::refusesFiles()
{
    NoteMap map;
    QString problem;
    QVERIFY(!map.load(QStringLiteral("/nowhere/kit.map"), &problem));
    QCOMPARE(problem, QStringLiteral("note map /nowhere/kit.map: No such file or directory"));
    QVERIFY(!map.load(QStringLiteral("/dev/zero"), &problem));
    QCOMPARE(problem, QStringLiteral("note map /dev/zero: larger than 1 MiB"));
    QVERIFY(!map.load(QStringLiteral("/"), &problem));
    QVERIFY(problem.startsWith(QStringLiteral("note map /: ")));
}

QTEST_APPLESS_MAIN(NoteMapTest)
#include "tst_notemap.moc"
