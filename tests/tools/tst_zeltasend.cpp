#include "sendrun.h"
#include "support/noise.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <map>
#include <memory>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using testsupport::noise;
using Outcome = simulated::ReceivedFile::Outcome;

namespace {

enum ExitStatus {
    Sent = 0,
    Failed = 1,
    Misused = 2,
    BadFile = 3,
    NoEngine = 4,
    NotNewer = 5,
    NoModule = 6,
    Interrupted = 130
};

// Takes about a second to send, so that answers arrive while it is sent. Its last packet is padded.
QByteArray content()
{
    return noise(700 * 512 - 1);
}

QByteArray bankContent()
{
    return noise(1000 * 1024);
}

QByteArray zeltaFirmware()
{
    return "4810QN-abc1.05 - " + content();
}

QByteArray triggerFirmware()
{
    return QByteArray("TGFW\x05\x00\x01\x00", 8) + content();
}

// A module that cannot be loaded.
bool makeBrokenModule(const QTemporaryDir &folder)
{
    QFile qmldir(folder.filePath(QStringLiteral("ZeltaConnect/qmldir")));
    return QDir(folder.path()).mkdir(QStringLiteral("ZeltaConnect")) && qmldir.open(QIODevice::WriteOnly) &&
           qmldir.write("module ZeltaConnect\nplugin nothing\n") > 0;
}

// The engine stops answering queries at the start of a file, or skips one query.
void fallSilent(SoundEngine *engine, bool forOneQuery)
{
    QObject::connect(engine, &SoundEngine::transferStarted, engine,
                     [engine] { QVERIFY(engine->setFailure(QStringLiteral("no-query-reply"))); });
    if (!forOneQuery)
        return;
    QObject::connect(engine, &SoundEngine::noted, engine, [engine](const QString &line) {
        if (line == QLatin1String("did not answer query HL"))
            engine->clearFailures();
    });
}

// Sends an undefined event each second.
void sendOtherEvents(SoundEngine *engine)
{
    auto *timer = new QTimer(engine);
    QObject::connect(timer, &QTimer::timeout, engine, [engine] { engine->sendEvent(0x5A5A, 1, 2); });
    timer->start(1000);
}

} // namespace

// Each run has its own engine. All runs start before the first is checked, because they mostly wait.
class ZeltaSendTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void kinds_data();
    void kinds();
    void failures_data();
    void failures();
    void badEngineVariable();
    void badFiles_data();
    void badFiles();
    void versionsOfBanks();
    void noAnswerInTime();
    void timeUp();
    void noModule();
    void linesWithoutTerminal();
    void barOnTerminal();
    void interruption();
    void interruptionAfterDelivery();
    void warnsOfAnotherKind_data();
    void warnsOfAnotherKind();
    void prefersThePingOfTheTools();
    void bluetoothSetStopsAtFirstFailure();

private:
    QString path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }
    SendRun &begin(const char *row, const QString &failure, const QStringList &arguments);
    void startKinds();
    void startFailures();

    struct KindRow
    {
        const char *kind;
        QStringList tags;
        int slot;
        QString name;
        QList<QByteArray> contents;
    };
    struct FailureRow
    {
        const char *name;
        int status;
        QString message;
    };

    QTemporaryDir m_dir;
    QVector<KindRow> m_kindRows;
    QVector<FailureRow> m_failureRows;
    std::map<QByteArray, std::unique_ptr<SendRun>> m_runs;
    int m_nextEngine = 1;
};

void ZeltaSendTest::initTestCase()
{
    const auto write = [this](const char *name, const QByteArray &bytes) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    };
    write("file.bin", content());
    write("module.b00", content());
    write("module.b01", bankContent());
    write("module.ipf", content());
    write("engine.bin", zeltaFirmware());
    write("board.bin", triggerFirmware());
    write("empty.bin", QByteArray());
    write("large.bin", noise(4 * 1024 * 1024));
    write("bank.bin", bankContent());
    write("short.bin", noise(60 * 1024));
    startKinds();
    startFailures();
}

void ZeltaSendTest::cleanupTestCase()
{
    m_runs.clear();
}

SendRun &ZeltaSendTest::begin(const char *row, const QString &failure, const QStringList &arguments)
{
    std::unique_ptr<SendRun> &run = m_runs[row];
    run = std::make_unique<SendRun>(m_nextEngine++, failure);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
    run->engine().setVersion(SoundEngine::Version::SoundEngine, 1, 4);
    run->start(arguments);
    // Only a few at a time, so that the start of a run does not slow down running transfers.
    const auto areStarting = [this] {
        return std::count_if(m_runs.begin(), m_runs.end(),
                             [](const auto &other) { return other.second->isStarting(); });
    };
    [[maybe_unused]] const bool begun = QTest::qWaitFor([&] { return areStarting() < 4; }, 30000);
    return *run;
}

void ZeltaSendTest::startKinds()
{
    const auto row = [this](const char *kind, const QStringList &arguments, const QStringList &tags, int slot,
                            const QString &name, const QList<QByteArray> &contents) {
        begin(kind, QString(), QStringList{QStringLiteral("--kind"), QLatin1String(kind)} + arguments);
        m_kindRows.append({kind, tags, slot, name, contents});
    };
    row("zelta", {path("engine.bin")}, {QStringLiteral("FW")}, -1, {}, {zeltaFirmware()});
    row("trigger", {path("board.bin")}, {QStringLiteral("TF")}, -1, {}, {triggerFirmware()});
    row("soundbank", {path("bank.bin")}, {QStringLiteral("SB")}, -1, {}, {bankContent()});
    row("triggerbank", {path("file.bin")}, {QStringLiteral("TB")}, -1, {}, {content()});
    row("import-soundbank",
        {QStringLiteral("--slot=9"), QStringLiteral("--name"), QStringLiteral("Kit \u00e4"),
         path("file.bin")},
        {QStringLiteral("IS")}, 9, QStringLiteral("Kit \u00e4"), {content()});
    row("import-wave", {path("file.bin"), QStringLiteral("--slot"), QStringLiteral("65535")},
        {QStringLiteral("IW")}, 65535, QStringLiteral("file.bin"), {content()});
    row("bluetooth", {path("module.b00"), path("module.b01"), path("module.ipf")},
        {QStringLiteral("BF"), QStringLiteral("BF"), QStringLiteral("BF")}, 0, {},
        {content(), bankContent(), content()});
}

void ZeltaSendTest::kinds_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<QByteArray>>("contents");
    for (const KindRow &row : qAsConst(m_kindRows))
        QTest::newRow(row.kind) << row.tags << row.slot << row.name << row.contents;
}

void ZeltaSendTest::kinds()
{
    QFETCH(const QStringList, tags);
    QFETCH(const int, slot);
    QFETCH(const QString, name);
    QFETCH(const QList<QByteArray>, contents);
    SendRun &run = *m_runs.at(QTest::currentDataTag());

    QCOMPARE(run.exitStatus(), int(Sent));
    QCOMPARE(run.errors(), QString());
    QCOMPARE(run.output().count(QStringLiteral(": sent, ")), tags.size());
    const QVector<SoundEngine::ReceivedFile> files = run.engine().receivedFiles();
    QCOMPARE(files.size(), tags.size());
    for (int i = 0; i < files.size(); ++i) {
        QCOMPARE(files.at(i).outcome, Outcome::Whole);
        QCOMPARE(files.at(i).content, tags.at(i));
        QVERIFY(files.at(i).data == contents.at(i));
    }
    QCOMPARE(files.first().slot, slot);
    QCOMPARE(files.first().name, name);
    QCOMPARE(run.engine().violations(), QStringList());
}

void ZeltaSendTest::startFailures()
{
    const auto row = [this](const char *name, const char *failure, const QStringList &arguments, int status,
                            const char *message) {
        begin(name, QLatin1String(failure), arguments);
        m_failureRows.append({name, status, QString::fromLatin1(message)});
    };
    const auto kind = [](const char *name, const QString &file) {
        return QStringList{QStringLiteral("--kind"), QLatin1String(name), file};
    };
    const QStringList triggerBank = kind("triggerbank", path("file.bin"));
    const QStringList soundBank = kind("soundbank", path("bank.bin"));
    // So large that an answer to an early packet arrives before the end, also on a busy machine.
    const QStringList largeBank = kind("triggerbank", path("large.bin"));
    const QStringList largeWave =
        kind("import-wave", path("large.bin")) + QStringList{QStringLiteral("--slot=1")};
    const QStringList wave = kind("import-wave", path("file.bin")) + QStringList{QStringLiteral("--slot=1")};
    const QStringList bluetooth = kind("bluetooth", path("module.b00"));
    const QStringList board = kind("trigger", path("board.bin"));
    const QStringList engine = kind("zelta", path("engine.bin"));

    row("sent again", "resend", triggerBank, Sent, "sent, .*retransmissions: 1\n");
    row("sent again twice", "resend-twice", soundBank, Sent, "sent, .*retransmissions: 2\n");
    row("lost packet of firmware", "lose-once", board, Sent, "sent, .*retransmissions: 1\n");
    row("refused bank", "refuse-e0", largeBank, Failed, "refused the data \\(0xe0\\)");
    row("refused sample", "refuse-ef", largeWave, Failed, "refused the data \\(0xef\\)");
    row("refused board firmware", "refuse-e4", board, Failed, "refused the data \\(0xe4\\)");
    row("refused engine firmware", "refuse-e4", engine, Failed, "refused the data \\(0xe4\\)");
    row("bank, memory full", "memory-full-e1", largeBank, Failed, "memory is full \\(0xe1\\)");
    row("sample, memory full", "memory-full-e2", largeWave, Failed, "memory is full \\(0xe2\\)");
    row("bluetooth, memory full", "memory-full-e3", kind("bluetooth", path("large.bin")), Failed,
        "memory is full \\(0xe3\\)");
    row("bank, checksum", "bad-checksum", triggerBank, Failed, "checksum error.*\\(0x01\\)");
    row("sample, checksum", "bad-checksum", wave, Failed, "checksum error.*\\(0x01\\)");
    row("board firmware, checksum", "bad-checksum", board, Failed, "checksum error.*\\(0x01\\)");
    row("engine firmware, checksum", "bad-checksum", engine, Failed, "checksum error.*\\(0x01\\)");
    // The module reports these imports and updates like successful ones.
    row("sample, end not acknowledged", "no-end-ack", wave, Failed, "did not acknowledge the end");
    row("board firmware, end not acknowledged", "no-end-ack", board, Failed, "did not acknowledge the end");
    row("engine firmware, end not acknowledged", "no-end-ack", engine, Failed, "did not acknowledge the end");
    row("bank, end not acknowledged", "no-end-ack", triggerBank, Failed, "did not acknowledge the end");
    row("engine vanishes", "vanish", wave, Failed, "did not acknowledge the end");
    // Aborted without any signal.
    row("bank, data past the end", "resend-past-end", largeBank, Failed, "aborted");
    row("board firmware, data past the end", "resend-past-end", board, Failed, "aborted");
    row("aborted, an answer lost", "resend-past-end", largeBank, Failed, "aborted");
    fallSilent(&m_runs.at("aborted, an answer lost")->engine(), true);
    row("aborted, no further answer", "resend-past-end", largeBank, NoEngine, "has stopped answering");
    fallSilent(&m_runs.at("aborted, no further answer")->engine(), false);
    row("aborted, other events", "resend-past-end", largeBank, Failed, "aborted");
    sendOtherEvents(&m_runs.at("aborted, other events")->engine());
    row("unexpected acknowledgements", "stray-acks", wave, Sent, "sent, .*retransmissions: 0\n");
    row("answers to other queries", "wrong-query-reply", board, Sent, "sent, ");
    row("no answer to the first query", "no-query-reply", triggerBank, NoEngine, "does not answer");

    // The engine answers the query for the sound bank with the version of the trigger bank, and the next
    // query with another answer.
    row("one version of two", "wrong-query-reply", {QStringLiteral("--versions")}, NoEngine,
        "does not report the version of the sound bank");

    row("not newer board firmware", "", board, NotNewer,
        "version 1\\.05 is not newer than the module's version 1\\.05");
    m_runs.at("not newer board firmware")->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 5);
    row("not newer engine firmware", "", engine, NotNewer,
        "version 1\\.05 is not newer than the module's version 2\\.00");
    m_runs.at("not newer engine firmware")->engine().setVersion(SoundEngine::Version::SoundEngine, 2, 0);
    row("firmware without a version", "", kind("trigger", path("file.bin")), BadFile, "no firmware version");
    row("engine firmware without a version", "", kind("zelta", path("file.bin")), BadFile,
        "no firmware version");
}

void ZeltaSendTest::failures_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    for (const FailureRow &row : qAsConst(m_failureRows))
        QTest::newRow(row.name) << row.status << row.message;
}

void ZeltaSendTest::failures()
{
    QFETCH(const int, status);
    QFETCH(const QString, message);
    SendRun &run = *m_runs.at(QTest::currentDataTag());

    QCOMPARE(run.exitStatus(), status);
    const QString output = status == Sent ? run.output() : run.errors();
    const QRegularExpression expected(message);
    const bool matches = expected.match(output).hasMatch(); // clazy:exclude=use-static-qregularexpression
    QVERIFY2(matches, qPrintable(run.output() + run.errors()));
    if (status == Sent) {
        QCOMPARE(run.errors(), QString());
        QCOMPARE(run.engine().receivedFiles().size(), 1);
        QCOMPARE(run.engine().receivedFiles().first().outcome, Outcome::Whole);
    } else {
        // One line.
        QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
        QVERIFY(run.errors().startsWith(QStringLiteral("zelta-send: ")));
        QVERIFY(!run.output().contains(QStringLiteral(": sent")));
    }
    if (status == NotNewer || status == BadFile || status == NoEngine)
        QVERIFY(run.engine().receivedFiles().isEmpty());
}

// Otherwise the module would use the address of the real engine.
void ZeltaSendTest::badEngineVariable()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZELTACONNECT_ENGINE"), QStringLiteral("127.1"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZELTA_SEND),
                  {QStringLiteral("--versions"), QStringLiteral("--import"), folder.path()});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), int(Misused));
    QCOMPARE(
        process.readAllStandardError(),
        QByteArray("zelta-send: ZELTACONNECT_ENGINE takes an IPv4 address, or address:port, not 127.1\n"));
}

void ZeltaSendTest::badFiles_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("error");

    QTest::newRow("missing") << QStringList{path("nothing.b00")} << QStringLiteral("no such file");
    QTest::newRow("a folder") << QStringList{m_dir.path()} << QStringLiteral("not a file");
    QTest::newRow("empty") << QStringList{path("empty.bin")} << QStringLiteral("is empty");
    QTest::newRow("a device") << QStringList{QStringLiteral("/dev/zero")} << QStringLiteral("not a file");
    QTest::newRow("second of a set is missing")
        << QStringList{path("module.b00"), path("module.b05")} << QStringLiteral("no such file");
    const QString locked = path("locked.b00");
    QFile file(locked);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    QVERIFY(file.setPermissions(QFileDevice::Permissions()));
    QTest::newRow("not readable") << QStringList{locked} << QStringLiteral("cannot read");
    // Nothing writes to it, so that a program that opens it blocks.
    const QString pipe = path("pipe.b00");
    if (::mkfifo(pipe.toLocal8Bit().constData(), S_IRUSR | S_IWUSR) == 0)
        QTest::newRow("a pipe") << QStringList{pipe} << QStringLiteral("not a file");
    const QString huge = path("huge.b00");
    QFile hugeFile(huge);
    if (hugeFile.open(QIODevice::WriteOnly) && hugeFile.resize(0x100000000LL))
        QTest::newRow("too large") << QStringList{huge} << QStringLiteral("4 GiB or larger");
}

void ZeltaSendTest::badFiles()
{
    QFETCH(const QStringList, files);
    QFETCH(const QString, error);
    if (error == QLatin1String("cannot read") &&
        ::access(files.constFirst().toLocal8Bit().constData(), R_OK) == 0) {
        QSKIP("this user can read every file, as root can");
    }
    SendRun run(100);
    run.start(QStringList{QStringLiteral("--kind=bluetooth")} + files);
    QCOMPARE(run.exitStatus(), int(BadFile));
    QVERIFY2(run.errors().contains(error), qPrintable(run.errors()));
    QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
    QCOMPARE(run.engine().counters().datagrams, quint64(0));
}

void ZeltaSendTest::versionsOfBanks()
{
    SendRun run(100);
    run.engine().setVersion(SoundEngine::Version::SoundBank, 2, 7);
    run.engine().setVersion(SoundEngine::Version::TriggerBank, 0, 31);
    run.start({QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(Sent));
    QCOMPARE(run.output(), QStringLiteral("sound bank: V 2.07\ntrigger bank: V 31\n"));
}

void ZeltaSendTest::noAnswerInTime()
{
    SendRun run(100, QStringLiteral("no-query-reply"));
    run.start({QStringLiteral("--timeout=2"), QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(NoEngine));
    QCOMPARE(run.errors(), QStringLiteral("zelta-send: gave up after 2 s\n"));
}

void ZeltaSendTest::timeUp()
{
    SendRun run(100);
    run.start({QStringLiteral("--timeout=1"), QStringLiteral("--kind=triggerbank"), path("large.bin")});
    QCOMPARE(run.exitStatus(), int(NoEngine));
    QVERIFY2(run.errors().contains(QStringLiteral("gave up after 1 s")), qPrintable(run.errors()));
}

void ZeltaSendTest::noModule()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    SendRun run(100);
    run.start({QStringLiteral("--import"), folder.path(), QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(NoModule));
    QVERIFY2(run.errors().contains(QStringLiteral("ZeltaConnect")), qPrintable(run.errors()));
    QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
}

void ZeltaSendTest::linesWithoutTerminal()
{
    SendRun run(100);
    run.start({QStringLiteral("--kind=soundbank"), QStringLiteral("--progress"), path("short.bin")});
    QCOMPARE(run.exitStatus(), int(Sent));
    const QStringList lines = run.output().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 14);
    QCOMPARE(lines.first(), QStringLiteral("sending %1, 61440 bytes, as sound bank").arg(path("short.bin")));
    for (int i = 1; i <= 10; ++i) {
        const QRegularExpression line(QStringLiteral("^%1 %  \\d+ kB/s$").arg(i * 10));
        QVERIFY2(line.match(lines.at(i)).hasMatch(), qPrintable(lines.at(i)));
    }
    QCOMPARE(lines.at(11), QStringLiteral("all sent, waiting for the engine"));
    QVERIFY(lines.at(12).startsWith(path("short.bin") + QStringLiteral(": sent, 61440 bytes in ")));
    QVERIFY(!run.output().contains(QLatin1Char('\r')) && !run.output().contains(QLatin1Char('\x1b')));
}

void ZeltaSendTest::barOnTerminal()
{
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0)
        QSKIP(qPrintable(QStringLiteral("no pseudo terminal: ") + qt_error_string(errno)));
    SendRun run(100);
    run.process().setStandardOutputFile(QString::fromLocal8Bit(::ptsname(master)));
    run.start({QStringLiteral("--kind=triggerbank"), path("file.bin")});
    QByteArray shown;
    const auto read = [&] {
        std::array<char, 4096> buffer{};
        for (ssize_t got = 0; (got = ::read(master, buffer.data(), buffer.size())) > 0;)
            shown.append(buffer.data(), int(got));
    };
    QVERIFY(QTest::qWaitFor(
        [&] {
            read();
            return run.process().state() == QProcess::NotRunning && shown.contains(": sent");
        },
        20000));
    ::close(master);
    QCOMPARE(run.exitStatus(), int(Sent));
    const QString text = QString::fromLocal8Bit(shown);
    QVERIFY2(text.contains(QRegularExpression(QStringLiteral("\r\\[#+ *\\] +\\d+ %  \\d+ kB/s"))),
             shown.constData());
    QVERIFY2(text.contains(QStringLiteral("] 100 %  ")), shown.constData());
    // The bar is erased before the result is printed.
    QVERIFY2(text.contains(QRegularExpression(QStringLiteral("\r\x1b\\[K.*: sent, 358399 bytes"))),
             shown.constData());
}

void ZeltaSendTest::interruption()
{
    SendRun run(100);
    run.start({QStringLiteral("--kind=triggerbank"), path("large.bin")});
    QVERIFY(QTest::qWaitFor(
        [&] { return run.process().bytesAvailable() > 0 && run.engine().counters().datagrams > 50; }, 20000));
    ::kill(pid_t(run.process().processId()), SIGINT);
    QCOMPARE(run.exitStatus(), int(Interrupted));
    QCOMPARE(run.errors(), QStringLiteral("zelta-send: interrupted\n"));
    // Aborted without an end packet.
    QVERIFY(run.engine().receivedFiles().isEmpty());
}

void ZeltaSendTest::interruptionAfterDelivery()
{
    SendRun run(100, QStringLiteral("no-end-ack"));
    run.start({QStringLiteral("--kind=triggerbank"), path("short.bin")});
    run.process().setReadChannel(QProcess::StandardOutput);
    QByteArray shown;
    QVERIFY(QTest::qWaitFor(
        [&] {
            shown += run.process().readAllStandardOutput();
            return shown.contains("all sent, waiting for the engine\n") &&
                   !run.engine().receivedFiles().isEmpty();
        },
        20000));
    ::kill(pid_t(run.process().processId()), SIGINT);
    QCOMPARE(run.exitStatus(), int(Interrupted));
    QCOMPARE(
        run.errors(),
        QStringLiteral("zelta-send: interrupted; all data of %1 is sent, so the engine may have the file\n")
            .arg(path("short.bin")));
    QCOMPARE(run.engine().receivedFiles().first().outcome, Outcome::Whole);
}

void ZeltaSendTest::warnsOfAnotherKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("warning");
    const QByteArray wave = QByteArray("RIFF\x24\x08\x00\x00WAVEfmt ", 16) + noise(2000);
    const auto row = [](const char *name, const char *kind, const QByteArray &contents, const char *warning) {
        QTest::newRow(name) << QString::fromLatin1(kind) << contents << QString::fromLatin1(warning);
    };
    row("board firmware as a bank", "triggerbank", triggerFirmware(),
        "trigger-board firmware, but is sent as trigger bank");
    row("engine firmware as bluetooth firmware", "bluetooth", zeltaFirmware(),
        "sound-engine firmware, but is sent as bluetooth firmware");
    row("engine firmware with large numbers", "bluetooth", "4810QN-abc99999.99999 - " + content(),
        "sound-engine firmware, but is sent as bluetooth firmware");
    row("short header of board firmware", "triggerbank", "TGFW\x05",
        "trigger-board firmware, but is sent as trigger bank");
    row("WAV file as a bank", "triggerbank", wave, "a WAV file, but is sent as trigger bank");
    row("WAV file as a sample", "import-wave", wave, "");
    row("unknown contents", "triggerbank", noise(2000), "");
}

void ZeltaSendTest::warnsOfAnotherKind()
{
    QFETCH(const QString, kind);
    QFETCH(const QByteArray, contents);
    QFETCH(const QString, warning);
    QFile file(path("disguised.bin"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
    file.close();
    QStringList arguments = {QStringLiteral("--kind"), kind, file.fileName()};
    if (kind == QLatin1String("import-wave"))
        arguments.append(QStringLiteral("--slot=1"));
    SendRun run(100);
    run.start(arguments);
    QCOMPARE(run.exitStatus(), int(Sent));
    const QString line =
        QStringLiteral("zelta-send: warning: %1 looks like %2\n").arg(file.fileName(), warning);
    QCOMPARE(run.errors(), warning.isEmpty() ? QString() : line);
}

// With the first ping of PATH the module would wait for all its attempts.
void ZeltaSendTest::prefersThePingOfTheTools()
{
    const QTemporaryDir folder;
    QFile ping(folder.filePath(QStringLiteral("ping")));
    QVERIFY(ping.open(QIODevice::WriteOnly) && ping.write("#!/bin/sh\necho >\"$0.was-run\"\n") > 0);
    QVERIFY(ping.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
    ping.close();
    SendRun run(100);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"),
                       folder.path() + QLatin1Char(':') + environment.value(QStringLiteral("PATH")));
    run.process().setProcessEnvironment(environment);
    run.start({QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(Sent));
    QVERIFY(!QFile::exists(ping.fileName() + QStringLiteral(".was-run")));
}

void ZeltaSendTest::bluetoothSetStopsAtFirstFailure()
{
    SendRun run(100, QStringLiteral("bad-checksum"));
    run.start({QStringLiteral("--kind=bluetooth"), path("module.b00"), path("module.b01")});
    QCOMPARE(run.exitStatus(), int(Failed));
    QVERIFY(run.errors().contains(QStringLiteral("module.b00: checksum error")));
    QCOMPARE(run.engine().receivedFiles().size(), 1);
}

QTEST_GUILESS_MAIN(ZeltaSendTest)
#include "tst_zeltasend.moc"
