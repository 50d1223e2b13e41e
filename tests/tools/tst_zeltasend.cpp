#include "sendrun.h"

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
#include <unistd.h>

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

QByteArray noise(int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint32 state = 7;
    for (char &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = char(state >> 24);
    }
    return bytes;
}

// A stream of a second or so, so that what the engine says finds the sender at work; its last packet is
// padded.
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

// A module that no program can load.
bool makeBrokenModule(const QTemporaryDir &folder)
{
    QFile qmldir(folder.filePath(QStringLiteral("ZeltaConnect/qmldir")));
    return QDir(folder.path()).mkdir(QStringLiteral("ZeltaConnect")) && qmldir.open(QIODevice::WriteOnly) &&
           qmldir.write("module ZeltaConnect\nplugin nothing\n") > 0;
}

// From the start of a file on the engine answers no query, or leaves one out.
void fallSilent(SoundEngine *engine, bool forOneQuery)
{
    QObject::connect(engine, &SoundEngine::transferStarted, engine,
                     [engine] { QVERIFY(engine->setFailure(QStringLiteral("no-query-reply"))); });
    if (!forOneQuery)
        return;
    QObject::connect(engine, &SoundEngine::noted, engine, [engine](const QString &line) {
        if (line == QLatin1String("kept silent about query HL"))
            engine->clearFailures();
    });
}

// Events that nothing understands, one each second.
void talkOfOtherThings(SoundEngine *engine)
{
    auto *timer = new QTimer(engine);
    QObject::connect(timer, &QTimer::timeout, engine, [engine] { engine->sendEvent(0x5A5A, 1, 2); });
    timer->start(1000);
}

} // namespace

// Runs with their own engines, all started before the first of them is looked at: most of their time is the
// waiting that the protocol asks for.
class tst_ZeltaSend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void kinds_data();
    void kinds();
    void failures_data();
    void failures();
    void badUsage_data();
    void badUsage();
    void badEngineVariable();
    void badFiles_data();
    void badFiles();
    void help_data();
    void help();
    void version();
    void versionsOfBanks();
    void noAnswerInTime();
    void timeUp();
    void noModule();
    void linesWithoutTerminal();
    void barOnTerminal();
    void interruption();
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
        QString words;
    };

    QTemporaryDir m_dir;
    QVector<KindRow> m_kindRows;
    QVector<FailureRow> m_failureRows;
    std::map<QByteArray, std::unique_ptr<SendRun>> m_runs;
    int m_nextEngine = 1;
};

void tst_ZeltaSend::initTestCase()
{
    const auto write = [this](const char *name, const QByteArray &bytes) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    };
    write("file.bin", content());
    write("module.b00", content());
    write("module.b01", zeltaFirmware());
    write("module.ipf", triggerFirmware());
    write("engine.bin", zeltaFirmware());
    write("board.bin", triggerFirmware());
    write("empty.bin", QByteArray());
    write("large.bin", noise(4 * 1024 * 1024));
    write("bank.bin", bankContent());
    write("short.bin", noise(60 * 1024));
    startKinds();
    startFailures();
}

void tst_ZeltaSend::cleanupTestCase()
{
    m_runs.clear();
}

SendRun &tst_ZeltaSend::begin(const char *row, const QString &failure, const QStringList &arguments)
{
    std::unique_ptr<SendRun> &run = m_runs[row];
    run = std::make_unique<SendRun>(m_nextEngine++, failure);
    run->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
    run->engine().setVersion(SoundEngine::Version::SoundEngine, 1, 4);
    run->start(arguments);
    // Only so many at once that one that has begun to send is not kept from it by the start of others.
    const auto areStarting = [this] {
        return std::count_if(m_runs.begin(), m_runs.end(),
                             [](const auto &other) { return other.second->isStarting(); });
    };
    [[maybe_unused]] const bool begun = QTest::qWaitFor([&] { return areStarting() < 4; }, 30000);
    return *run;
}

void tst_ZeltaSend::startKinds()
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
        {content(), zeltaFirmware(), triggerFirmware()});
}

void tst_ZeltaSend::kinds_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<QByteArray>>("contents");
    for (const KindRow &row : qAsConst(m_kindRows))
        QTest::newRow(row.kind) << row.tags << row.slot << row.name << row.contents;
}

void tst_ZeltaSend::kinds()
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

void tst_ZeltaSend::startFailures()
{
    const auto row = [this](const char *name, const char *failure, const QStringList &arguments, int status,
                            const char *words) {
        begin(name, QLatin1String(failure), arguments);
        m_failureRows.append({name, status, QString::fromLatin1(words)});
    };
    const auto kind = [](const char *name, const QString &file) {
        return QStringList{QStringLiteral("--kind"), QLatin1String(name), file};
    };
    const QStringList triggerBank = kind("triggerbank", path("file.bin"));
    const QStringList soundBank = kind("soundbank", path("bank.bin"));
    const QStringList wave = kind("import-wave", path("file.bin")) + QStringList{QStringLiteral("--slot=1")};
    const QStringList bluetooth = kind("bluetooth", path("module.b00"));
    const QStringList board = kind("trigger", path("board.bin"));
    const QStringList engine = kind("zelta", path("engine.bin"));

    row("sent again", "resend", triggerBank, Sent, "sent, .*retransmissions: 1\n");
    row("sent again twice", "resend-twice", soundBank, Sent, "sent, .*retransmissions: 2\n");
    row("lost packet of firmware", "lose-once", board, Sent, "sent, .*retransmissions: 1\n");
    row("refused bank", "refuse-e0", triggerBank, Failed, "refused the data \\(0xe0\\)");
    row("refused sample", "refuse-ef", wave, Failed, "refused the data \\(0xef\\)");
    row("refused board firmware", "refuse-e4", board, Failed, "refused the data \\(0xe4\\)");
    row("refused engine firmware", "refuse-e4", engine, Failed, "refused the data \\(0xe4\\)");
    row("bank, memory full", "memory-full-e1", triggerBank, Failed, "memory is full \\(0xe1\\)");
    row("sample, memory full", "memory-full-e2", wave, Failed, "memory is full \\(0xe2\\)");
    row("bluetooth, memory full", "memory-full-e3", bluetooth, Failed, "memory is full \\(0xe3\\)");
    row("bank, checksum", "bad-checksum", triggerBank, Failed, "checksum error.*\\(0x01\\)");
    row("sample, checksum", "bad-checksum", wave, Failed, "checksum error.*\\(0x01\\)");
    row("board firmware, checksum", "bad-checksum", board, Failed, "checksum error.*\\(0x01\\)");
    row("engine firmware, checksum", "bad-checksum", engine, Failed, "checksum error.*\\(0x01\\)");
    // The module reports these two imports and updates no differently from good ones.
    row("sample, end not acknowledged", "no-end-ack", wave, Failed, "did not acknowledge the end");
    row("board firmware, end not acknowledged", "no-end-ack", board, Failed, "did not acknowledge the end");
    row("engine firmware, end not acknowledged", "no-end-ack", engine, Failed, "did not acknowledge the end");
    row("bank, end not acknowledged", "no-end-ack", triggerBank, Failed, "did not acknowledge the end");
    row("engine gone", "vanish", wave, Failed, "did not acknowledge the end");
    // Broken off without any signal.
    row("bank, data past the end", "resend-past-end", triggerBank, Failed, "broken off");
    row("board firmware, data past the end", "resend-past-end", board, Failed, "broken off");
    row("broken off, an answer lost", "resend-past-end", triggerBank, Failed, "broken off");
    fallSilent(&m_runs.at("broken off, an answer lost")->engine(), true);
    row("broken off, no answer any more", "resend-past-end", triggerBank, NoEngine,
        "does not answer any more");
    fallSilent(&m_runs.at("broken off, no answer any more")->engine(), false);
    row("broken off, other events", "resend-past-end", triggerBank, Failed, "broken off");
    talkOfOtherThings(&m_runs.at("broken off, other events")->engine());
    row("acknowledgements of nothing", "stray-acks", wave, Sent, "sent, .*retransmissions: 0\n");
    row("answers to other questions", "wrong-query-reply", board, Sent, "sent, ");
    row("no answer to the first question", "no-query-reply", triggerBank, NoEngine, "does not answer");

    // The engine tells the trigger bank's version when it is asked for the sound bank's, and none later.
    row("one version of two", "wrong-query-reply", {QStringLiteral("--versions")}, NoEngine,
        "does not tell the version of the sound bank");

    row("not newer board firmware", "", board, NotNewer, "has this version");
    m_runs.at("not newer board firmware")->engine().setVersion(SoundEngine::Version::TriggerBoard, 1, 5);
    row("not newer engine firmware", "", engine, NotNewer, "has this version");
    m_runs.at("not newer engine firmware")->engine().setVersion(SoundEngine::Version::SoundEngine, 2, 0);
    row("firmware without a version", "", kind("trigger", path("file.bin")), BadFile, "no firmware version");
    row("engine firmware without a version", "", kind("zelta", path("file.bin")), BadFile,
        "no firmware version");
}

void tst_ZeltaSend::failures_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("words");
    for (const FailureRow &row : qAsConst(m_failureRows))
        QTest::newRow(row.name) << row.status << row.words;
}

void tst_ZeltaSend::failures()
{
    QFETCH(const int, status);
    QFETCH(const QString, words);
    SendRun &run = *m_runs.at(QTest::currentDataTag());

    QCOMPARE(run.exitStatus(), status);
    const QString said = status == Sent ? run.output() : run.errors();
    const QRegularExpression expected(words);
    const bool isSaid = expected.match(said).hasMatch(); // clazy:exclude=use-static-qregularexpression
    QVERIFY2(isSaid, qPrintable(run.output() + run.errors()));
    if (status == Sent) {
        QCOMPARE(run.errors(), QString());
        QCOMPARE(run.engine().receivedFiles().size(), 1);
        QCOMPARE(run.engine().receivedFiles().first().outcome, Outcome::Whole);
    } else {
        // One clear line.
        QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
        QVERIFY(run.errors().startsWith(QStringLiteral("zelta-send: ")));
        QVERIFY(!run.output().contains(QStringLiteral(": sent")));
    }
    if (status == NotNewer || status == BadFile || status == NoEngine)
        QVERIFY(run.engine().receivedFiles().isEmpty());
}

void tst_ZeltaSend::badUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    const QString file = path("file.bin");
    const auto row = [](const char *name, const QStringList &arguments, const char *complaint) {
        QTest::newRow(name) << arguments << QString::fromLatin1(complaint);
    };
    const auto kind = [](const char *name) {
        return QStringLiteral("--kind=") + QLatin1String(name);
    };
    row("nothing", {}, "--kind is missing");
    row("no kind", {file}, "--kind is missing");
    row("unknown kind", {kind("zip"), file}, "no kind zip");
    row("no file", {kind("soundbank")}, "no file given");
    row("two files", {kind("soundbank"), file, file}, "--kind soundbank takes one file");
    row("no slot", {kind("import-wave"), file}, "needs --slot");
    row("slot below", {kind("import-wave"), QStringLiteral("--slot=-1"), file},
        "--slot takes 0 to 65535, not -1");
    row("slot above", {kind("import-wave"), QStringLiteral("--slot=65536"), file}, "not 65536");
    row("slot of a bank", {kind("soundbank"), QStringLiteral("--slot=1"), file}, "has no slot");
    row("name of a sample",
        {kind("import-wave"), QStringLiteral("--slot=1"), QStringLiteral("--name=a"), file}, "has no name");
    row("option without value", {file, QStringLiteral("--kind")}, "--kind needs a value");
    row("unknown option", {QStringLiteral("--fast")}, "unknown option --fast");
    row("unknown short option", {QStringLiteral("-v")}, "unknown option -v");
    row("engine by name", {QStringLiteral("--engine=localhost")}, "--engine takes an IPv4 address");
    row("engine in short", {QStringLiteral("--engine=127.1")}, "--engine takes an IPv4 address");
    row("engine with leading zero", {QStringLiteral("--engine=127.020.1.1")},
        "--engine takes an IPv4 address");
    row("engine without port", {QStringLiteral("--engine=127.0.0.1:")}, "--engine takes an IPv4 address");
    row("engine with port 0", {QStringLiteral("--engine=127.0.0.1:0")}, "--engine takes an IPv4 address");
    row("time-out of 0", {QStringLiteral("--timeout=0")}, "--timeout takes 1 to");
    row("time-out in words", {QStringLiteral("--timeout=long")}, "--timeout takes 1 to");
    row("import folder", {QStringLiteral("--import=/nowhere")}, "no such folder: /nowhere");
    row("versions and a file", {QStringLiteral("--versions"), file}, "--versions sends no files");
    row("versions and a kind", {QStringLiteral("--versions"), kind("soundbank")},
        "--versions sends no files");
}

void tst_ZeltaSend::badUsage()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, complaint);
    QProcess process;
    process.start(QStringLiteral(ZELTA_SEND), arguments);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), int(Misused));
    const QString said = QString::fromLocal8Bit(process.readAllStandardError());
    QVERIFY2(said.contains(complaint), qPrintable(said));
    QCOMPARE(said.count(QLatin1Char('\n')), 1);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

// The module would turn to the real engine.
void tst_ZeltaSend::badEngineVariable()
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

void tst_ZeltaSend::badFiles_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("complaint");

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
    // Nothing is locked to root.
    if (::access(locked.toLocal8Bit().constData(), R_OK) != 0)
        QTest::newRow("not readable") << QStringList{locked} << QStringLiteral("cannot read");
    const QString huge = path("huge.b00");
    QFile hugeFile(huge);
    if (hugeFile.open(QIODevice::WriteOnly) && hugeFile.resize(0x100000000LL))
        QTest::newRow("too large") << QStringList{huge} << QStringLiteral("larger than 4 GiB");
}

void tst_ZeltaSend::badFiles()
{
    QFETCH(const QStringList, files);
    QFETCH(const QString, complaint);
    SendRun run(100);
    run.start(QStringList{QStringLiteral("--kind=bluetooth")} + files);
    QCOMPARE(run.exitStatus(), int(BadFile));
    QVERIFY2(run.errors().contains(complaint), qPrintable(run.errors()));
    QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
    QCOMPARE(run.engine().counters().datagrams, quint64(0));
}

void tst_ZeltaSend::help_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("long") << QStringLiteral("--help");
    QTest::newRow("short") << QStringLiteral("-h");
}

void tst_ZeltaSend::help()
{
    QFETCH(const QString, option);
    SendRun run(100);
    run.start({option});
    QCOMPARE(run.exitStatus(), int(Sent));
    for (const char *word : {"--kind", "--slot", "--name", "--versions", "--engine", "--import", "--timeout",
                             "import-soundbank", "Exit status"})
        QVERIFY2(run.output().contains(QLatin1String(word)), word);
    QCOMPARE(run.errors(), QString());
}

void tst_ZeltaSend::version()
{
    SendRun run(100);
    run.start({QStringLiteral("--version")});
    QCOMPARE(run.exitStatus(), int(Sent));
    QVERIFY(QRegularExpression(QStringLiteral("^zelta-send \\d+\\.\\d+\\.\\d+\n$"))
                .match(run.output())
                .hasMatch());
}

void tst_ZeltaSend::versionsOfBanks()
{
    SendRun run(100);
    run.engine().setVersion(SoundEngine::Version::SoundBank, 2, 7);
    run.engine().setVersion(SoundEngine::Version::TriggerBank, 0, 31);
    run.start({QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(Sent));
    QCOMPARE(run.output(), QStringLiteral("sound bank: V 2.07\ntrigger bank: V 31\n"));
}

void tst_ZeltaSend::noAnswerInTime()
{
    SendRun run(100, QStringLiteral("no-query-reply"));
    run.start({QStringLiteral("--timeout=2"), QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(NoEngine));
    QCOMPARE(run.errors(), QStringLiteral("zelta-send: gave up after 2 s\n"));
}

void tst_ZeltaSend::timeUp()
{
    SendRun run(100);
    run.start({QStringLiteral("--timeout=1"), QStringLiteral("--kind=triggerbank"), path("large.bin")});
    QCOMPARE(run.exitStatus(), int(NoEngine));
    QVERIFY2(run.errors().contains(QStringLiteral("gave up after 1 s")), qPrintable(run.errors()));
    QVERIFY(run.engine().receivedFiles().isEmpty());
}

void tst_ZeltaSend::noModule()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    SendRun run(100);
    run.start({QStringLiteral("--import"), folder.path(), QStringLiteral("--versions")});
    QCOMPARE(run.exitStatus(), int(NoModule));
    QVERIFY2(run.errors().contains(QStringLiteral("ZeltaConnect")), qPrintable(run.errors()));
    QCOMPARE(run.errors().count(QLatin1Char('\n')), 1);
}

void tst_ZeltaSend::linesWithoutTerminal()
{
    SendRun run(100);
    run.start({QStringLiteral("--kind=soundbank"), path("short.bin")});
    QCOMPARE(run.exitStatus(), int(Sent));
    const QStringList lines = run.output().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 13);
    QCOMPARE(lines.first(), QStringLiteral("sending %1, 61440 bytes, as sound bank").arg(path("short.bin")));
    for (int i = 1; i <= 10; ++i) {
        const QRegularExpression line(QStringLiteral("^%1 %  \\d+ kB/s$").arg(i * 10));
        QVERIFY2(line.match(lines.at(i)).hasMatch(), qPrintable(lines.at(i)));
    }
    QVERIFY(lines.at(11).startsWith(path("short.bin") + QStringLiteral(": sent, 61440 bytes in ")));
    QVERIFY(!run.output().contains(QLatin1Char('\r')) && !run.output().contains(QLatin1Char('\x1b')));
}

void tst_ZeltaSend::barOnTerminal()
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
    // The bar is gone when the result is said.
    QVERIFY2(text.contains(QRegularExpression(QStringLiteral("\r\x1b\\[K.*: sent, 358399 bytes"))),
             shown.constData());
}

void tst_ZeltaSend::interruption()
{
    SendRun run(100);
    run.start({QStringLiteral("--kind=triggerbank"), path("large.bin")});
    QVERIFY(QTest::qWaitFor(
        [&] { return run.process().bytesAvailable() > 0 && run.engine().counters().datagrams > 50; }, 20000));
    ::kill(pid_t(run.process().processId()), SIGINT);
    QCOMPARE(run.exitStatus(), int(Interrupted));
    QCOMPARE(run.errors(), QStringLiteral("zelta-send: interrupted\n"));
    // Broken off without an end packet.
    QVERIFY(run.engine().receivedFiles().isEmpty());
}

void tst_ZeltaSend::bluetoothSetStopsAtFirstFailure()
{
    SendRun run(100, QStringLiteral("bad-checksum"));
    run.start({QStringLiteral("--kind=bluetooth"), path("module.b00"), path("module.b01")});
    QCOMPARE(run.exitStatus(), int(Failed));
    QVERIFY(run.errors().contains(QStringLiteral("module.b00: checksum error")));
    QCOMPARE(run.engine().receivedFiles().size(), 1);
}

QTEST_GUILESS_MAIN(tst_ZeltaSend)
#include "tst_zeltasend.moc"
