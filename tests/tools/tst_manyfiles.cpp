// Several files in one call of zelta-send: what is sent after a failure, the table at the end, --dry-run.

#include "jsonkeys.h"
#include "programrun.h"
#include "sendrun.h"
#include "support/noise.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using testsupport::noise;

class ManyFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void differentKinds();
    void listIsSent();
    void stopsAtFailure();
    void keepsGoing();
    void keepsGoingWithJson();
    void keepsGoingWithoutFile();
    void restOfASetIsNotSent();
    void timeUpEndsTheRun();
    void nothingIsSentIfAFileIsBad_data();
    void nothingIsSentIfAFileIsBad();
    void dryRunSendsNothing();
    void dryRunOfBadFiles_data();
    void dryRunOfBadFiles();
    void dryRunAnnouncesWhatIsSent();
    void dryRunWithoutModule();

private:
    QString path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }

    QTemporaryDir m_dir;
};

namespace {

enum EngineNumber {
    Kinds = 21,
    List,
    Stop,
    KeepGoing,
    KeepGoingJson,
    NoFile,
    Set,
    Silent,
    Bad,
    DryRun,
    Announced = 35
};

std::unique_ptr<SendRun> newRun(EngineNumber number, const QString &failure = QString())
{
    auto run = std::make_unique<SendRun>(QStringLiteral("127.20.41.%1").arg(number), failure);
    // The firmware of these tests has version 1.05.
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 5);
    return run;
}

QStringList contentsOf(SendRun &run)
{
    QStringList contents;
    const QVector<SoundEngine::ReceivedFile> files = run.engine().receivedFiles();
    for (const SoundEngine::ReceivedFile &file : files)
        contents.append(file.content);
    return contents;
}

QStringList statesIn(const QByteArray &output)
{
    QStringList states;
    const QJsonArray files = onlyObject(output).value(QLatin1String("files")).toArray();
    for (const QJsonValue &file : files)
        states.append(file.toObject().value(QLatin1String("state")).toString());
    return states;
}

// The table at the end of the output, with single blanks and without the times.
QStringList tableIn(const QString &output)
{
    QStringList lines = output.mid(output.indexOf(QLatin1String("RESULT"))).split(QLatin1Char('\n'));
    lines.removeLast();
    for (QString &line : lines)
        line = line.simplified();
    return lines;
}

} // namespace

void ManyFilesTest::initTestCase()
{
    const auto write = [this](const char *name, const QByteArray &bytes) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    };
    write("bank.bin", noise(40 * 1024));
    write("board.bin", QByteArray("TGFW\x05\x00\x01\x00", 8) + noise(5000));
    write("part.b00", noise(4000));
    write("part.b01", noise(5000));
    write("empty.bin", QByteArray());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("broken/ZeltaConnect")));
    write("broken/ZeltaConnect/qmldir", "module ZeltaConnect\nplugin nothing\n");
}

void ManyFilesTest::differentKinds()
{
    const std::unique_ptr<SendRun> run = newRun(Kinds);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
    run->start({path("board.bin"), QStringLiteral("--kind"), QStringLiteral("trigger"), path("bank.bin"),
                QStringLiteral("--kind"), QStringLiteral("import-wave"), QStringLiteral("--slot"),
                QStringLiteral("12"), path("part.b00"), path("part.b01"), QStringLiteral("--kind"),
                QStringLiteral("bluetooth")});
    QCOMPARE(run->exitStatus(), 0);
    QCOMPARE(run->errors(), QString());
    const QStringList contents = {QStringLiteral("TF"), QStringLiteral("IW"), QStringLiteral("BF"),
                                  QStringLiteral("BF")};
    QCOMPARE(contentsOf(*run), contents);
    QCOMPARE(run->engine().receivedFiles().at(1).slot, 12);
    const QStringList table = tableIn(run->output());
    QCOMPARE(table.size(), 5);
    QCOMPARE(table.at(0), QStringLiteral("RESULT KIND SLOT BYTES SECONDS FILE"));
    const auto isRow = [&table](int row, const QString &pattern) {
        const QRegularExpression expected(QStringLiteral("^%1$").arg(pattern));
        return expected.match(table.at(row)).hasMatch(); // clazy:exclude=use-static-qregularexpression
    };
    QVERIFY2(isRow(1, QStringLiteral("sent trigger - 5008 \\d+\\.\\d .*/board.bin")),
             qPrintable(table.at(1)));
    QVERIFY2(isRow(2, QStringLiteral("sent import-wave 12 40960 \\d+\\.\\d .*/bank.bin")),
             qPrintable(table.at(2)));
    QVERIFY2(isRow(4, QStringLiteral("sent bluetooth - 5000 \\d+\\.\\d .*/part.b01")),
             qPrintable(table.at(4)));
}

void ManyFilesTest::listIsSent()
{
    QFile list(path("update.list"));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write("# in this order\nbank.bin --kind triggerbank\nbank.bin --kind soundbank\n");
    list.close();
    const std::unique_ptr<SendRun> run = newRun(List);
    run->start({QStringLiteral("--list"), list.fileName()});
    QCOMPARE(run->exitStatus(), 0);
    const QStringList contents = {QStringLiteral("TB"), QStringLiteral("SB")};
    QCOMPARE(contentsOf(*run), contents);
}

void ManyFilesTest::stopsAtFailure()
{
    const std::unique_ptr<SendRun> run = newRun(Stop);
    run->start({path("board.bin"), QStringLiteral("--kind=trigger"), path("bank.bin"),
                QStringLiteral("--kind=soundbank")});
    QCOMPARE(run->exitStatus(), 5);
    QCOMPARE(run->errors().count(QLatin1Char('\n')), 1);
    QVERIFY(contentsOf(*run).isEmpty());
    const QStringList table = tableIn(run->output());
    QCOMPARE(table.size(), 3);
    QVERIFY(table.at(1).startsWith(QLatin1String("failed trigger - 5008 ")));
    QCOMPARE(table.at(2), QStringLiteral("not-sent soundbank - 40960 - ") + path("bank.bin"));
}

void ManyFilesTest::keepsGoing()
{
    const std::unique_ptr<SendRun> run = newRun(KeepGoing);
    run->start({QStringLiteral("--keep-going"), path("board.bin"), QStringLiteral("--kind=trigger"),
                path("bank.bin"), QStringLiteral("--kind=soundbank")});
    QCOMPARE(run->exitStatus(), 5);
    QCOMPARE(contentsOf(*run), QStringList{QStringLiteral("SB")});
    const QStringList errors = run->errors().split(QLatin1Char('\n'));
    QCOMPARE(errors.size(), 3);
    QVERIFY2(errors.at(0).contains(QLatin1String("board.bin: not sent: version 1.05 is not newer")),
             qPrintable(errors.at(0)));
    QCOMPARE(errors.at(1), QStringLiteral("zelta-send: 1 of 2 files were not sent"));
    QVERIFY(tableIn(run->output()).at(2).startsWith(QLatin1String("sent soundbank")));
}

void ManyFilesTest::keepsGoingWithJson()
{
    const std::unique_ptr<SendRun> run = newRun(KeepGoingJson);
    run->start({QStringLiteral("--keep-going"), QStringLiteral("--json"), path("board.bin"),
                QStringLiteral("--kind=trigger"), path("bank.bin"), QStringLiteral("--kind=soundbank")});
    QCOMPARE(run->exitStatus(), 5);
    const QByteArray output = run->output().toUtf8();
    QVERIFY(hasDocumentedKeys(onlyObject(output)));
    const QStringList states = {QStringLiteral("failed"), QStringLiteral("sent")};
    QCOMPARE(statesIn(output), states);
}

void ManyFilesTest::keepsGoingWithoutFile()
{
    const std::unique_ptr<SendRun> run = newRun(NoFile);
    run->start({QStringLiteral("--keep-going"), path("none.bin"), QStringLiteral("--kind=triggerbank"),
                path("bank.bin"), QStringLiteral("--kind=soundbank")});
    QCOMPARE(run->exitStatus(), 3);
    QCOMPARE(contentsOf(*run), QStringList{QStringLiteral("SB")});
    QCOMPARE(run->errors(), QStringLiteral("zelta-send: no such file: %1\n"
                                           "zelta-send: 1 of 2 files were not sent\n")
                                .arg(path("none.bin")));
}

// Half a set is worse than none.
void ManyFilesTest::restOfASetIsNotSent()
{
    const std::unique_ptr<SendRun> run = newRun(Set, QStringLiteral("bad-checksum"));
    QObject::connect(&run->engine(), &SoundEngine::transferEnded, &run->engine(),
                     [&run] { run->engine().clearFailures(); });
    run->start({QStringLiteral("--keep-going"), QStringLiteral("--json"), path("part.b00"), path("part.b01"),
                QStringLiteral("--kind=bluetooth"), path("bank.bin"), QStringLiteral("--kind=soundbank")});
    QCOMPARE(run->exitStatus(), 1);
    const QStringList contents = {QStringLiteral("BF"), QStringLiteral("SB")};
    QCOMPARE(contentsOf(*run), contents);
    const QStringList states = {QStringLiteral("failed"), QStringLiteral("not-sent"), QStringLiteral("sent")};
    QCOMPARE(statesIn(run->output().toUtf8()), states);
}

void ManyFilesTest::timeUpEndsTheRun()
{
    const std::unique_ptr<SendRun> run = newRun(Silent, QStringLiteral("no-end-ack"));
    run->start({QStringLiteral("--keep-going"), QStringLiteral("--json"), QStringLiteral("--timeout=6"),
                path("bank.bin"), QStringLiteral("--kind=soundbank"), path("bank.bin"),
                QStringLiteral("--kind=triggerbank")});
    QCOMPARE(run->exitStatus(), 4);
    const QStringList states = {QStringLiteral("failed"), QStringLiteral("not-sent")};
    QCOMPARE(statesIn(run->output().toUtf8()), states);
}

void ManyFilesTest::nothingIsSentIfAFileIsBad_data()
{
    QTest::addColumn<QStringList>("badFile");
    QTest::addColumn<QString>("error");
    const auto row = [this](const char *name, const char *file, const char *kind, const char *error) {
        QTest::newRow(name) << QStringList{path(file), QStringLiteral("--kind"), QString::fromLatin1(kind)}
                            << QString::fromLatin1(error);
    };
    row("missing", "none.bin", "triggerbank", "no such file: ");
    row("board firmware without a version", "bank.bin", "trigger",
        "bank.bin: the file has no firmware version\n");
    row("engine firmware without a version", "bank.bin", "zelta",
        "bank.bin: the file has no firmware version\n");
    row("version of the other firmware", "board.bin", "zelta",
        "board.bin: the file has no firmware version; it looks like trigger-board firmware\n");
}

void ManyFilesTest::nothingIsSentIfAFileIsBad()
{
    QFETCH(const QStringList, badFile);
    QFETCH(const QString, error);
    const std::unique_ptr<SendRun> run = newRun(Bad);
    run->start(QStringList{path("bank.bin"), QStringLiteral("--kind=soundbank")} + badFile);
    QCOMPARE(run->exitStatus(), 3);
    QVERIFY2(run->errors().contains(error), qPrintable(run->errors()));
    QCOMPARE(run->errors().count(QLatin1Char('\n')), 1);
    QCOMPARE(run->engine().counters().datagrams, quint64(0));
}

void ManyFilesTest::dryRunSendsNothing()
{
    const std::unique_ptr<SendRun> run = newRun(DryRun);
    run->start({QStringLiteral("--dry-run"), path("board.bin"), QStringLiteral("--kind=trigger"),
                path("bank.bin"), QStringLiteral("--kind=import-wave"), QStringLiteral("--slot=3")});
    QCOMPARE(run->exitStatus(), 0);
    QCOMPARE(run->errors(), QString());
    const QStringList lines = run->output().split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0), QStringLiteral("would send %1, 5008 bytes, as trigger-board firmware, "
                                         "if version 1.05 is newer")
                              .arg(path("board.bin")));
    QCOMPARE(lines.at(1), QStringLiteral("would send %1, 40960 bytes, as wave sample for a slot, slot 3")
                              .arg(path("bank.bin")));
    QVERIFY(tableIn(run->output()).at(1).startsWith(QLatin1String("would-send trigger")));
    QCOMPARE(run->engine().counters().datagrams, quint64(0));
}

void ManyFilesTest::dryRunOfBadFiles_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("states");
    const QString failed = QStringLiteral("failed");
    const QString notSent = QStringLiteral("not-sent");
    const QString bank = path("bank.bin");
    const QString asBank = QStringLiteral("--kind=soundbank");
    QTest::newRow("missing") << QStringList{asBank, path("none.bin")} << QStringLiteral("no such file")
                             << QStringList{failed};
    QTest::newRow("empty") << QStringList{asBank, path("empty.bin")} << QStringLiteral("the file is empty")
                           << QStringList{failed};
    QTest::newRow("no version") << QStringList{QStringLiteral("--kind=trigger"), bank, }
                                << QStringLiteral("has no firmware version") << QStringList{failed};
    QTest::newRow("version of the other firmware")
        << QStringList{QStringLiteral("--kind=zelta"), path("board.bin")}
        << QStringLiteral("has no firmware version") << QStringList{failed};
    QTest::newRow("the rest would not be sent")
        << QStringList{bank, QStringLiteral("--kind=trigger"), bank, asBank}
        << QStringLiteral("has no firmware version") << QStringList{failed, notSent};
    QTest::newRow("the rest would be sent")
        << QStringList{QStringLiteral("--keep-going"), bank, QStringLiteral("--kind=trigger"), bank, asBank}
        << QStringLiteral("has no firmware version") << QStringList{failed, QStringLiteral("would-send")};
    QTest::newRow("half a set") << QStringList{QStringLiteral("--keep-going"), path("none.b00"),
                                               path("part.b00"), QStringLiteral("--kind=bluetooth")}
                                << QStringLiteral("no such file") << QStringList{failed, notSent};
    QTest::newRow("the other half of a set")
        << QStringList{QStringLiteral("--keep-going"), path("part.b00"), path("none.b01"),
                       QStringLiteral("--kind=bluetooth")}
        << QStringLiteral("no such file") << QStringList{notSent, failed};
}

void ManyFilesTest::dryRunOfBadFiles()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, error);
    QFETCH(const QStringList, states);
    const ProgramRun run =
        runZeltaSend(QStringList{QStringLiteral("--dry-run"), QStringLiteral("--json")} + arguments);
    QCOMPARE(run.status, 3);
    const QJsonObject result = onlyObject(run.output);
    QVERIFY(hasDocumentedKeys(result));
    const QString message = result.value(QLatin1String("message")).toString();
    QVERIFY2(message.contains(error), qPrintable(message));
    QCOMPARE(statesIn(run.output), states);
}

// Also where the file that fails stands behind another file of its set.
void ManyFilesTest::dryRunAnnouncesWhatIsSent()
{
    const QStringList arguments = {QStringLiteral("--keep-going"),
                                   QStringLiteral("--json"),
                                   path("part.b00"),
                                   path("none.b01"),
                                   QStringLiteral("--kind=bluetooth"),
                                   path("bank.bin"),
                                   QStringLiteral("--kind=trigger"),
                                   path("bank.bin"),
                                   QStringLiteral("--kind=soundbank")};
    const ProgramRun rehearsal = runZeltaSend(QStringList{QStringLiteral("--dry-run")} + arguments);
    QCOMPARE(rehearsal.status, 3);
    const std::unique_ptr<SendRun> run = newRun(Announced);
    run->start(arguments);
    QCOMPARE(run->exitStatus(), 3);
    QCOMPARE(contentsOf(*run), QStringList{QStringLiteral("SB")});
    QStringList announced = statesIn(rehearsal.output);
    announced.replaceInStrings(QStringLiteral("would-send"), QStringLiteral("sent"));
    QCOMPARE(statesIn(run->output().toUtf8()), announced);
}

void ManyFilesTest::dryRunWithoutModule()
{
    const ProgramRun run =
        runZeltaSend({QStringLiteral("--dry-run"), QStringLiteral("--import"), path("broken"),
                      QStringLiteral("--kind=soundbank"), path("bank.bin")});
    QCOMPARE(run.status, 6);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains("ZeltaConnect"), run.errors.constData());
}

QTEST_GUILESS_MAIN(ManyFilesTest)
#include "tst_manyfiles.moc"
