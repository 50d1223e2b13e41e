// The output of zelta-send when it sends nothing: errors in its options, help and version.

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

class UsageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badUsage_data();
    void badUsage();
    void help_data();
    void help();
    void version();
};

namespace {

constexpr int misused = 2;

QString outputOf(const QString &option)
{
    QProcess process;
    process.start(QStringLiteral(SEND_PROGRAM), {option});
    const bool succeeded =
        process.waitForFinished() && process.exitCode() == 0 && process.readAllStandardError().isEmpty();
    return succeeded ? QString::fromLocal8Bit(process.readAllStandardOutput()) : QString();
}

} // namespace

void UsageTest::badUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    const QString file = QStringLiteral("file.bin");
    const auto row = [](const char *name, const QStringList &arguments, const char *error) {
        QTest::newRow(name) << arguments << QString::fromLatin1(error);
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
    row("engine in short form", {QStringLiteral("--engine=127.1")}, "--engine takes an IPv4 address");
    row("engine with leading zero", {QStringLiteral("--engine=127.020.1.1")},
        "--engine takes an IPv4 address");
    row("engine without port", {QStringLiteral("--engine=127.0.0.1:")}, "--engine takes an IPv4 address");
    row("engine with port 0", {QStringLiteral("--engine=127.0.0.1:0")}, "--engine takes an IPv4 address");
    row("engine with signed port", {QStringLiteral("--engine=127.0.0.1:+5")},
        "--engine takes an IPv4 address");
    row("engine without host", {QStringLiteral("--engine=0.0.0.0")}, "--engine takes an IPv4 address");
    row("engine at multicast", {QStringLiteral("--engine=224.0.0.1")}, "--engine takes an IPv4 address");
    row("engine at broadcast", {QStringLiteral("--engine=255.255.255.255")},
        "--engine takes an IPv4 address");
    row("time-out of 0", {QStringLiteral("--timeout=0")}, "--timeout takes 1 to");
    row("time-out as text", {QStringLiteral("--timeout=long")}, "--timeout takes 1 to");
    row("import folder", {QStringLiteral("--import=/nowhere")}, "no such folder: /nowhere");
    row("versions and a file", {QStringLiteral("--versions"), file}, "--versions sends no files");
    row("versions and a kind", {QStringLiteral("--versions"), kind("soundbank")},
        "--versions sends no files");
    const QString timeout = QStringLiteral("--timeout=9");
    const QString keepGoing = QStringLiteral("--keep-going");
    row("inspection and a time-out", {QStringLiteral("--inspect"), timeout, file},
        "--inspect takes no --timeout");
    row("inspection that keeps going", {QStringLiteral("--inspect"), file, keepGoing},
        "--inspect takes no --keep-going");
    row("diagnosis and a time-out", {timeout, QStringLiteral("--diagnose")}, "--diagnose takes no --timeout");
    row("diagnosis that keeps going", {QStringLiteral("--diagnose"), keepGoing},
        "--diagnose takes no --keep-going");
    row("versions that keep going", {QStringLiteral("--versions"), keepGoing},
        "--versions takes no --keep-going");
}

void UsageTest::badUsage()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, error);
    QProcess process;
    process.start(QStringLiteral(SEND_PROGRAM), arguments);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), misused);
    const QString output = QString::fromLocal8Bit(process.readAllStandardError());
    QVERIFY2(output.contains(error), qPrintable(output));
    QCOMPARE(output.count(QLatin1Char('\n')), 1);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void UsageTest::help_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("long") << QStringLiteral("--help");
    QTest::newRow("short") << QStringLiteral("-h");
}

void UsageTest::help()
{
    QFETCH(const QString, option);
    const QString output = outputOf(option);
    for (const char *text : {"--kind", "--slot", "--name", "--versions", "--engine", "--import", "--timeout",
                             "import-soundbank", "Exit status"})
        QVERIFY2(output.contains(QLatin1String(text)), text);
}

void UsageTest::version()
{
    static const QRegularExpression line(QStringLiteral("^zelta-send \\d+\\.\\d+\\.\\d+\n$"));
    QVERIFY(line.match(outputOf(QStringLiteral("--version"))).hasMatch());
}

QTEST_GUILESS_MAIN(UsageTest)
#include "tst_usage.moc"
