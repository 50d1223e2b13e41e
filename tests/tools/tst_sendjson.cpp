// zelta-send --json: one result object on standard output for every exit status, progress as JSON lines on
// standard error. --quiet and --progress.

#include "jsonkeys.h"
#include "programrun.h"
#include "sendrun.h"
#include "support/noise.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

using testsupport::noise;

class SendJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void withoutEngine_data();
    void withoutEngine();
    void sent();
    void events();
    void quiet();
    void withEngine_data();
    void withEngine();
    void interrupted();
    void warning();
    void log();
    void checks();
    void textHasNoRateLines();
    void quietText();
    void quietErrors();
    void keysAreDocumented();
    void noOtherEventIsDocumented();

private:
    QString path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }

    QTemporaryDir m_dir;
    QByteArray m_page;
    QMap<QString, QStringList> m_documentedEvents; ///< the keys of each
};

namespace {

const QString json = QStringLiteral("--json");

// Engines of this program; each test has its own.
enum EngineNumber {
    Sending = 1,
    Events,
    Quiet,
    Failing,
    Interrupted,
    Warning,
    Text,
    QuietText,
    QuietErrors,
    Log,
    Checks
};

std::unique_ptr<SendRun> newRun(EngineNumber number, const QString &failure = QString())
{
    return std::make_unique<SendRun>(QStringLiteral("127.20.41.%1").arg(number), failure);
}

QJsonObject fileOf(const QJsonObject &result, int index = 0)
{
    return result.value(QLatin1String("files")).toArray().at(index).toObject();
}

QStringList quotedIn(const QString &cell)
{
    static const QRegularExpression quoted(QStringLiteral("`([^`]+)`"));
    QStringList names;
    for (auto matches = quoted.globalMatch(cell); matches.hasNext();)
        names.append(matches.next().captured(1));
    return names;
}

// The keys of each event, in alphabetical order, from the table that begins with the column "event".
QMap<QString, QStringList> eventsIn(const QString &page)
{
    QMap<QString, QStringList> events;
    const QString table =
        page.section(QStringLiteral("\n| `event` |"), 1).section(QStringLiteral("\n\n"), 0, 0);
    const QStringList lines = table.split(QLatin1Char('\n')).mid(2);
    for (const QString &line : lines) {
        const QString cell = line.section(QLatin1Char('|'), 2, 2);
        QStringList keys = quotedIn(cell) + QStringList{QStringLiteral("event")};
        if (cell.contains(QLatin1String("those of a file")))
            keys += fileKeys;
        if (cell.contains(QLatin1String("those of a check")))
            keys += checkKeys;
        keys.sort();
        const QStringList names = quotedIn(line.section(QLatin1Char('|'), 1, 1));
        for (const QString &name : names)
            events.insert(name, keys);
    }
    return events;
}

} // namespace

void SendJsonTest::initTestCase()
{
    QFile page(QStringLiteral(SEND_PAGE));
    QVERIFY2(page.open(QIODevice::ReadOnly), qPrintable(page.errorString()));
    m_page = page.readAll();
    m_documentedEvents = eventsIn(QString::fromUtf8(m_page));

    const auto write = [this](const char *name, const QByteArray &bytes) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    };
    write("bank.bin", noise(60 * 1024));
    write("large.bin", noise(4 * 1024 * 1024));
    write("board.bin", QByteArray("TGFW\x05\x00\x01\x00", 8) + noise(5000));
    write("empty.bin", QByteArray());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("broken/ZeltaConnect")));
    write("broken/ZeltaConnect/qmldir", "module ZeltaConnect\nplugin nothing\n");
}

void SendJsonTest::withoutEngine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const QStringList &arguments, int status, const char *action,
                        const char *result, const char *message) {
        QTest::newRow(name) << arguments << status << QString::fromLatin1(action)
                            << QString::fromLatin1(result) << QString::fromLatin1(message);
    };
    const QString versions = QStringLiteral("--versions");
    row("unknown option", {json, QStringLiteral("--fast")}, 2, "none", "misused", "unknown option --fast");
    row("unknown option first", {QStringLiteral("--fast"), json}, 2, "none", "misused",
        "unknown option --fast");
    row("nothing else", {json}, 2, "none", "misused", "--kind is missing");
    row("option without its value", {QStringLiteral("--kind"), json}, 2, "none", "misused",
        "--kind needs a value");
    row("engine by name", {json, versions, QStringLiteral("--engine=localhost")}, 2, "none", "misused",
        "--engine takes an IPv4 address");
    row("help", {json, QStringLiteral("--help")}, 0, "help", "ok", "Usage: ");
    row("version", {json, QStringLiteral("--version")}, 0, "version", "ok", "");
    row("missing file", {json, QStringLiteral("--kind=soundbank"), path("none.bin")}, 3, "send", "bad-file",
        "no such file");
    row("inspected", {json, QStringLiteral("--inspect"), path("board.bin")}, 0, "inspect", "ok", "");
    row("inspected without a file", {json, QStringLiteral("--inspect")}, 2, "none", "misused",
        "no file given");
    row("empty file", {json, QStringLiteral("--inspect"), path("empty.bin")}, 3, "inspect", "bad-file",
        "is empty");
    row("dry run", {json, QStringLiteral("--dry-run"), QStringLiteral("--kind=soundbank"), path("bank.bin")},
        0, "dry-run", "ok", "");
    row("no module", {json, versions, QStringLiteral("--import"), path("broken")}, 6, "versions", "no-module",
        "ZeltaConnect");
    // No engine has the address of this program.
    row("time is up", {json, versions, QStringLiteral("--timeout=1")}, 4, "versions", "no-engine",
        "gave up after 1 s");
}

void SendJsonTest::withoutEngine()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const int, status);
    QFETCH(const QString, message);
    const ProgramRun run = runZeltaSend(arguments);
    QCOMPARE(run.status, status);
    const QJsonObject result = onlyObject(run.output);
    QVERIFY2(hasDocumentedKeys(result), run.output.constData());
    QCOMPARE(result.value(QLatin1String("program")).toString(), QStringLiteral("zelta-send"));
    QCOMPARE(result.value(QLatin1String("status")).toInt(-1), status);
    QTEST(result.value(QLatin1String("action")).toString(), "action");
    QTEST(result.value(QLatin1String("result")).toString(), "result");
    QCOMPARE(result.value(QLatin1String("message")).isNull(), message.isEmpty());
    QVERIFY2(result.value(QLatin1String("message")).toString().contains(message), run.output.constData());
    const QList<QJsonObject> events = objectLines(run.errors);
    for (const QJsonObject &event : events)
        QVERIFY2(event.contains(QLatin1String("event")), run.errors.constData());
}

void SendJsonTest::sent()
{
    const std::unique_ptr<SendRun> run = newRun(Sending);
    run->start({json, QStringLiteral("--kind=import-soundbank"), QStringLiteral("--slot=9"),
                QStringLiteral("--name=Kit \u00e4"), path("bank.bin")});
    QCOMPARE(run->exitStatus(), 0);
    const QJsonObject result = onlyObject(run->output().toUtf8());
    QVERIFY2(hasDocumentedKeys(result), qPrintable(run->output()));
    QCOMPARE(result.value(QLatin1String("engine")).toString(), QStringLiteral("127.20.41.1:19797"));
    const QJsonObject file = fileOf(result);
    QCOMPARE(file.value(QLatin1String("path")).toString(), path("bank.bin"));
    QCOMPARE(file.value(QLatin1String("kind")).toString(), QStringLiteral("import-soundbank"));
    QCOMPARE(file.value(QLatin1String("slot")).toInt(), 9);
    QCOMPARE(file.value(QLatin1String("name")).toString(), QStringLiteral("Kit \u00e4"));
    QCOMPARE(file.value(QLatin1String("bytes")).toInt(), 61440);
    QCOMPARE(file.value(QLatin1String("state")).toString(), QStringLiteral("sent"));
    QCOMPARE(file.value(QLatin1String("status")).toInt(-1), 0);
    QCOMPARE(file.value(QLatin1String("retransmissions")).toInt(-1), 0);
    QVERIFY(file.value(QLatin1String("seconds")).toDouble() > 0.0);
    QVERIFY(file.value(QLatin1String("bytesPerSecond")).toDouble() > 0.0);
    QVERIFY(file.value(QLatin1String("looksLike")).isNull());
    QVERIFY(file.value(QLatin1String("fileVersion")).isNull());
    QCOMPARE(run->engine().receivedFiles().size(), 1);
}

void SendJsonTest::events()
{
    const std::unique_ptr<SendRun> run = newRun(Events);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
    run->start({json, path("bank.bin"), QStringLiteral("--kind=triggerbank"), path("board.bin"),
                QStringLiteral("--kind=trigger")});
    QCOMPARE(run->exitStatus(), 0);
    QStringList names;
    double sentBytes = 0.0;
    const QList<QJsonObject> events = objectLines(run->errors().toUtf8());
    for (const QJsonObject &event : events) {
        const QString name = event.value(QLatin1String("event")).toString();
        if (names.isEmpty() || name != names.constLast())
            names.append(name);
        QCOMPARE(event.keys(), m_documentedEvents.value(name));
        if (name == QLatin1String("progress")) {
            QVERIFY(event.value(QLatin1String("bytesSent")).toDouble() > sentBytes);
            sentBytes = event.value(QLatin1String("bytesSent")).toDouble();
        }
    }
    QCOMPARE(sentBytes, 61440.0);
    // Whether the end of small firmware is seen before its acknowledgement depends on the time.
    names.removeAll(QStringLiteral("all-sent"));
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("start progress end start new-version end"));
    const QJsonObject board = fileOf(onlyObject(run->output().toUtf8()), 1);
    QCOMPARE(board.value(QLatin1String("fileVersion")).toString(), QStringLiteral("1.05"));
    QCOMPARE(board.value(QLatin1String("installedVersion")).toString(), QStringLiteral("1.04"));
    QCOMPARE(board.value(QLatin1String("looksLike")).toString(), QStringLiteral("trigger"));
}

void SendJsonTest::quiet()
{
    const std::unique_ptr<SendRun> run = newRun(Quiet);
    run->engine().setVersion(SoundEngine::Version::SoundBank, 2, 7);
    run->engine().setVersion(SoundEngine::Version::TriggerBank, 0, 31);
    run->start({json, QStringLiteral("--quiet"), QStringLiteral("--versions")});
    QCOMPARE(run->exitStatus(), 0);
    QCOMPARE(run->errors(), QString());
    const QJsonObject result = onlyObject(run->output().toUtf8());
    QVERIFY(hasDocumentedKeys(result));
    QCOMPARE(result.value(QLatin1String("soundBankVersion")).toString(), QStringLiteral("V 2.07"));
    QCOMPARE(result.value(QLatin1String("triggerBankVersion")).toString(), QStringLiteral("V 31"));
}

void SendJsonTest::withEngine_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("result");
    QTest::newRow("failed") << QStringLiteral("bad-checksum") << QStringLiteral("triggerbank")
                            << QStringLiteral("bank.bin") << 1 << QStringLiteral("failed");
    QTest::newRow("not newer") << QString() << QStringLiteral("trigger") << QStringLiteral("board.bin") << 5
                               << QStringLiteral("not-newer");
    QTest::newRow("no version") << QString() << QStringLiteral("trigger") << QStringLiteral("bank.bin") << 3
                                << QStringLiteral("bad-file");
}

void SendJsonTest::withEngine()
{
    QFETCH(const QString, failure);
    QFETCH(const QString, kind);
    QFETCH(const QString, file);
    QFETCH(const int, status);
    const std::unique_ptr<SendRun> run = newRun(Failing, failure);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 5);
    run->start({json, QStringLiteral("--kind"), kind, m_dir.filePath(file)});
    QCOMPARE(run->exitStatus(), status);
    const QJsonObject result = onlyObject(run->output().toUtf8());
    QVERIFY2(hasDocumentedKeys(result), qPrintable(run->output()));
    QTEST(result.value(QLatin1String("result")).toString(), "result");
    QVERIFY(!result.value(QLatin1String("message")).toString().isEmpty());
    QCOMPARE(fileOf(result).value(QLatin1String("state")).toString(), QStringLiteral("failed"));
    QCOMPARE(fileOf(result).value(QLatin1String("status")).toInt(), status);
    QVERIFY2(fileOf(result).value(QLatin1String("bytesPerSecond")).isNull(), qPrintable(run->output()));
}

void SendJsonTest::interrupted()
{
    const std::unique_ptr<SendRun> run = newRun(Interrupted);
    run->start({json, QStringLiteral("--kind=triggerbank"), path("large.bin")});
    QVERIFY(QTest::qWaitFor([&] { return run->engine().counters().datagrams > 50; }, 20000));
    ::kill(pid_t(run->process().processId()), SIGINT);
    QCOMPARE(run->exitStatus(), 130);
    const QJsonObject result = onlyObject(run->output().toUtf8());
    QVERIFY2(hasDocumentedKeys(result), qPrintable(run->output()));
    QCOMPARE(result.value(QLatin1String("result")).toString(), QStringLiteral("interrupted"));
    QCOMPARE(fileOf(result).value(QLatin1String("state")).toString(), QStringLiteral("failed"));
    QVERIFY(fileOf(result).value(QLatin1String("bytesPerSecond")).isNull());
}

void SendJsonTest::warning()
{
    const std::unique_ptr<SendRun> run = newRun(Warning);
    run->start({json, QStringLiteral("--kind=triggerbank"), path("board.bin")});
    QCOMPARE(run->exitStatus(), 0);
    const QJsonArray warnings = onlyObject(run->output().toUtf8()).value(QLatin1String("warnings")).toArray();
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.at(0).toString().contains(QLatin1String("looks like trigger-board firmware")));
    const QJsonObject event = objectLines(run->errors().toUtf8()).value(0);
    QCOMPARE(event.keys(), m_documentedEvents.value(QStringLiteral("warning")));
    QCOMPARE(event.value(QLatin1String("event")).toString(), QStringLiteral("warning"));
    QCOMPARE(event.value(QLatin1String("message")), warnings.at(0));
}

void SendJsonTest::log()
{
    const std::unique_ptr<SendRun> run = newRun(Log);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 5);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("zeltaconnect.transfer.info=true"));
    run->process().setProcessEnvironment(environment);
    run->start({json, QStringLiteral("--kind=trigger"), path("board.bin")});
    QCOMPARE(run->exitStatus(), 5);
    QJsonObject logged;
    const QList<QJsonObject> events = objectLines(run->errors().toUtf8());
    for (const QJsonObject &event : events) {
        if (event.value(QLatin1String("event")).toString() == QLatin1String("log"))
            logged = event;
    }
    QCOMPARE(logged.keys(), m_documentedEvents.value(QStringLiteral("log")));
    QVERIFY2(logged.value(QLatin1String("message")).toString().contains(QLatin1String("is not newer")),
             qPrintable(run->errors()));
}

// Which faults this machine has does not matter.
void SendJsonTest::checks()
{
    const std::unique_ptr<SendRun> run = newRun(Checks);
    run->start({json, QStringLiteral("--diagnose")});
    QVERIFY(run->exitStatus() >= 0);
    const QJsonArray checks = onlyObject(run->output().toUtf8()).value(QLatin1String("checks")).toArray();
    QVERIFY(!checks.isEmpty());
    QJsonArray reported;
    const QList<QJsonObject> events = objectLines(run->errors().toUtf8());
    for (QJsonObject event : events) {
        if (event.value(QLatin1String("event")).toString() != QLatin1String("check"))
            continue;
        QCOMPARE(event.keys(), m_documentedEvents.value(QStringLiteral("check")));
        event.remove(QStringLiteral("event"));
        reported.append(event);
    }
    QCOMPARE(reported, checks);
}

void SendJsonTest::textHasNoRateLines()
{
    const std::unique_ptr<SendRun> run = newRun(Text);
    run->start({QStringLiteral("--kind=soundbank"), path("bank.bin")});
    QCOMPARE(run->exitStatus(), 0);
    const QStringList lines = run->output().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QStringLiteral("sending %1, 61440 bytes, as sound bank").arg(path("bank.bin")));
    QCOMPARE(lines.at(1), QStringLiteral("all sent, waiting for the engine"));
    QVERIFY(lines.at(2).startsWith(path("bank.bin") + QStringLiteral(": sent, 61440 bytes in ")));
}

void SendJsonTest::quietText()
{
    const std::unique_ptr<SendRun> run = newRun(QuietText);
    run->start({QStringLiteral("--quiet"), path("bank.bin"), QStringLiteral("--kind=soundbank"),
                path("bank.bin"), QStringLiteral("--kind=triggerbank")});
    QCOMPARE(run->exitStatus(), 0);
    QCOMPARE(run->output(), QString());
    QCOMPARE(run->errors(), QString());
    QCOMPARE(run->engine().receivedFiles().size(), 2);
}

void SendJsonTest::quietErrors()
{
    const std::unique_ptr<SendRun> run = newRun(QuietErrors, QStringLiteral("bad-checksum"));
    run->start({QStringLiteral("--quiet"), QStringLiteral("--kind=triggerbank"), path("bank.bin")});
    QCOMPARE(run->exitStatus(), 1);
    QCOMPARE(run->output(), QString());
    QCOMPARE(run->errors().count(QLatin1Char('\n')), 1);
}

void SendJsonTest::keysAreDocumented()
{
    const QStringList keys = resultKeys + fileKeys + checkKeys + systemKeys;
    for (const QString &key : keys)
        QVERIFY2(m_page.contains('`' + key.toLatin1() + '`'), qPrintable(key));
}

// The events of the other tests.
void SendJsonTest::noOtherEventIsDocumented()
{
    const QStringList events = m_documentedEvents.keys();
    QCOMPARE(events.join(QLatin1Char(' ')),
             QStringLiteral("all-sent check end log new-version progress start warning"));
}

QTEST_GUILESS_MAIN(SendJsonTest)
#include "tst_sendjson.moc"
