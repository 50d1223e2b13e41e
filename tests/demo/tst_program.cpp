// The program zelta-demo: its exit status, report and pictures.

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

namespace {

constexpr int startPatience = 60000;
constexpr int endPatience = 300000;
constexpr quint16 enginePort = 19797;

QString playingEngine()
{
    return QStringLiteral("127.20.23.1");
}

QString silentEngine()
{
    return QStringLiteral("127.20.23.2");
}

QString windowEngine()
{
    return QStringLiteral("127.20.23.3");
}

QProcessEnvironment environmentFor(const QString &engine)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZELTACONNECT_ENGINE"), engine);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("PATH"),
                       QStringLiteral(PING_DIR ":") + environment.value(QStringLiteral("PATH")));
    return environment;
}

// A program with all of its output so far.
class Program : public QProcess
{
public:
    Program(const QString &path, const QStringList &arguments, const QString &engine)
    {
        setProcessEnvironment(environmentFor(engine));
        setStandardInputFile(nullDevice());
        start(path, arguments);
    }
    ~Program() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished();
        }
    }

    QString output()
    {
        m_output += QString::fromLocal8Bit(readAllStandardOutput());
        return m_output;
    }
    QString errors()
    {
        m_errors += QString::fromLocal8Bit(readAllStandardError());
        return m_errors;
    }
    bool waitForOutput(const QString &text)
    {
        return QTest::qWaitFor([this, text] { return output().contains(text) || state() == NotRunning; },
                               startPatience) &&
               output().contains(text);
    }
    // Reads the output of the other programs meanwhile, so that none waits for a reader.
    bool waitToEnd()
    {
        return QTest::qWaitFor([this] { return state() == NotRunning; }, endPatience);
    }
    // The program's own lines on standard error, without those of Qt.
    QStringList ownErrors()
    {
        return errors().split(QLatin1Char('\n')).filter(QRegularExpression(QStringLiteral("^zelta-demo: ")));
    }

private:
    QString m_output;
    QString m_errors;
};

int numberIn(const QString &text, const char *pattern)
{
    const QRegularExpression expression(QString::fromLatin1(pattern), QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = expression.match(text);
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

int lastNumberIn(const QString &text, const char *pattern)
{
    const QRegularExpression expression(QString::fromLatin1(pattern), QRegularExpression::MultilineOption);
    int last = -1;
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        last = matches.next().captured(1).toInt();
    return last;
}

// One picture for each page. The picture of the first page does not have the page's name.
QStringList pictureNames()
{
    QStringList names;
    QFile list(QStringLiteral(DEMO_PAGES));
    if (!list.open(QIODevice::ReadOnly))
        return names;
    const QJsonArray pages = QJsonDocument::fromJson(list.readAll()).array();
    for (const QJsonValue &page : pages)
        names += QStringLiteral("screenshot-") + page.toObject().value(QLatin1String("name")).toString();
    if (!names.isEmpty())
        names.first() = QStringLiteral("screenshot");
    return names;
}

// A module that cannot be loaded.
bool makeBrokenModule(const QTemporaryDir &folder)
{
    QFile listing(folder.filePath(QStringLiteral("ZeltaConnect/qmldir")));
    return QDir(folder.path()).mkdir(QStringLiteral("ZeltaConnect")) && listing.open(QIODevice::WriteOnly) &&
           listing.write("module ZeltaConnect\nplugin notthere\n") > 0;
}

} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tourReportsAndTakesPictures();
    void screenIsReducedToTheWindow();
    void transferResultIsReported_data();
    void transferResultIsReported();
    void bringsItsOwnEngine();
    void silentEngineIsAFailure();
    void windowEndsOnSigterm();
    void brokenModuleIsAFailure();
    void unreadableEngineAddressIsRefused();
    void wrongOptionIsRefused_data();
    void wrongOptionIsRefused();
    void runRefusesSeconds_data();
    void runRefusesSeconds();
    void helpAndVersion_data();
    void helpAndVersion();
};

void ProgramTest::tourReportsAndTakesPictures()
{
    Program engine(QStringLiteral(ENGINE_PROGRAM),
                   {QStringLiteral("--listen"), playingEngine(), QStringLiteral("--groove"),
                    QStringLiteral("--verbose")},
                   playingEngine());
    QVERIFY2(engine.waitForOutput(QStringLiteral("listening on")), qPrintable(engine.errors()));

    QTemporaryDir folder;
    QFile bank(folder.filePath(QStringLiteral("bank.bin")));
    QVERIFY(bank.open(QIODevice::WriteOnly));
    bank.write(QByteArray(3000, 'b'));
    bank.close();
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless"), QStringLiteral("8"), QStringLiteral("--screenshots"),
                  folder.filePath(QStringLiteral("new/pictures")), QStringLiteral("--files"), folder.path()},
                 playingEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QVERIFY2(demo.exitCode() == 0, qPrintable(demo.errors()));

    QVERIFY2(numberIn(demo.output(), "^to screen: +pad hits (\\d+)") > 0, qPrintable(demo.output()));
    QVERIFY2(numberIn(demo.output(), "^to screen: .*meter reports (\\d+)") > 10, qPrintable(demo.output()));
    QVERIFY2(numberIn(demo.output(), "^to screen: .*beats (\\d+)") > 0, qPrintable(demo.output()));
    QVERIFY2(numberIn(demo.output(), "^to screen: .*compressor reports (\\d+)") > 0,
             qPrintable(demo.output()));
    QVERIFY2(numberIn(demo.output(), "^from screen: (\\d+) control changes") > 20, qPrintable(demo.output()));

    QVERIFY2(demo.output().contains(QStringLiteral("transfer:    Sound bank: The engine has the file.")),
             qPrintable(demo.output()));

    // The engine has received the level that the screen shows.
    const QString levelHeard = QStringLiteral("mixer master out level");
    QVERIFY2(engine.waitForOutput(levelHeard), qPrintable(engine.output()));
    const int shown = numberIn(demo.output(), "last master level (\\d+)$");
    QVERIFY(shown >= 0);
    QTRY_COMPARE_WITH_TIMEOUT(lastNumberIn(engine.output(), "^mixer master out level (\\d+)$"), shown,
                              startPatience);

    // The tour operates controls of each page.
    for (const char *line :
         {"MIDI channel 11", "LED 1 on", "bluetooth switch 1", "bluetooth name \"Zelta\"", "auto-off 31",
          "trigger 1 type 1", "query HL: hi-hat raw value", "mixer playback routing 1/0",
          "pad 48 multi-FX direct routing 0/1", "pad 51 external MIDI note 52", "sysex F0 7E 7F 06 01 F7",
          "query TN: trigger bank version"}) {
        QVERIFY2(engine.output().contains(QString::fromLatin1(line)), line);
    }
    QVERIFY2(numberIn(engine.output(), "^program change (\\d+)$") > 0, qPrintable(engine.output()));

    const QStringList names = pictureNames();
    QVERIFY(!names.isEmpty());
    QVector<QImage> pictures;
    for (const QString &name : names) {
        const QImage picture(
            folder.filePath(QStringLiteral("new/pictures/") + name + QStringLiteral(".png")));
        QVERIFY2(picture.size() == QSize(1280, 800), qPrintable(name));
        // Without the navigation bar and the status strip, all pages are different.
        const QImage page = picture.copy(136, 0, 1144, 738);
        QVERIFY2(!pictures.contains(page), qPrintable(name));
        pictures.append(page);
    }
}

void ProgramTest::screenIsReducedToTheWindow()
{
    Program engine(QStringLiteral(ENGINE_PROGRAM),
                   {QStringLiteral("--listen"), playingEngine(), QStringLiteral("--groove")},
                   playingEngine());
    QVERIFY2(engine.waitForOutput(QStringLiteral("listening on")), qPrintable(engine.errors()));
    QTemporaryDir folder;
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless"), QStringLiteral("1"), QStringLiteral("--size"),
                  QStringLiteral("1024x600"), QStringLiteral("--screenshots"), folder.path()},
                 playingEngine());
    QVERIFY(demo.waitToEnd());
    QVERIFY2(demo.exitCode() == 0, qPrintable(demo.errors()));
    const QStringList names = pictureNames();
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        const QImage picture(folder.filePath(name + QStringLiteral(".png")));
        QVERIFY2(picture.size() == QSize(1024, 600), qPrintable(name));
        // The status strip reaches the lower edge, and the navigation bar ends before the page.
        QCOMPARE(picture.pixelColor(1020, 595), QColor(0x16, 0x19, 0x1E));
        QCOMPARE(picture.pixelColor(105, 5), QColor(0x0D, 0x0F, 0x12));
    }
}

void ProgramTest::transferResultIsReported_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("packets");
    QTest::addColumn<QString>("result");

    QTest::newRow("memory full") << QStringLiteral("memory-full-e1=3") << 10000
                                 << QStringLiteral("Sound bank: The engine's memory is full (0xe1).");
    QTest::newRow("refused") << QStringLiteral("refuse-e5=3") << 2000
                             << QStringLiteral("Sound bank: The engine refused the data (0xe5).");
    QTest::newRow("damaged") << QStringLiteral("bad-checksum") << 2000
                             << QStringLiteral(
                                    "Sound bank: Checksum error: the file did not arrive whole (0x01).");
    QTest::newRow("sent again") << QStringLiteral("resend=3") << 2000
                                << QStringLiteral("Sound bank: The engine has the file.");
    // No signal of the module reports this.
    QTest::newRow("broken off") << QStringLiteral("resend-past-end=3") << 10000
                                << QStringLiteral("Sound bank: The transfer was aborted: ");
}

void ProgramTest::transferResultIsReported()
{
    QFETCH(const QString, failure);
    QFETCH(const int, packets);
    QFETCH(const QString, result);
    Program engine(QStringLiteral(ENGINE_PROGRAM),
                   {QStringLiteral("--listen"), playingEngine(), QStringLiteral("--groove"),
                    QStringLiteral("--fail"), failure},
                   playingEngine());
    QVERIFY2(engine.waitForOutput(QStringLiteral("listening on")), qPrintable(engine.errors()));
    QTemporaryDir folder;
    QFile bank(folder.filePath(QStringLiteral("bank.bin")));
    QVERIFY(bank.open(QIODevice::WriteOnly));
    // Long enough for the engine's request in the middle to arrive in time, even if the screen is drawn
    // slowly.
    bank.write(QByteArray(1024 * packets, 'b'));
    bank.close();
    Program demo(
        QStringLiteral(DEMO_PROGRAM),
        {QStringLiteral("--headless"), QStringLiteral("1"), QStringLiteral("--files"), folder.path()},
        playingEngine());
    QVERIFY(demo.waitToEnd());
    QVERIFY2(demo.output().contains(QStringLiteral("transfer:    ") + result), qPrintable(demo.output()));
    QCOMPARE(demo.exitCode(), 0);
}

// The address in the environment is wrong, and it is not used. Two screens with an engine each do not disturb
// each other.
void ProgramTest::bringsItsOwnEngine()
{
    const QStringList arguments = {QStringLiteral("--simulate"), QStringLiteral("--headless"),
                                   QStringLiteral("2")};
    Program first(QStringLiteral(DEMO_PROGRAM), arguments, QStringLiteral("127.1"));
    Program second(QStringLiteral(DEMO_PROGRAM), arguments, QStringLiteral("127.1"));
    for (Program *demo : {&first, &second}) {
        QVERIFY(demo->waitToEnd());
        QCOMPARE(demo->exitStatus(), QProcess::NormalExit);
        QVERIFY2(demo->exitCode() == 0, qPrintable(demo->errors()));
        QVERIFY2(numberIn(demo->output(), "^to screen: +pad hits (\\d+)") > 0, qPrintable(demo->output()));
        QVERIFY2(numberIn(demo->output(), "^to screen: .*meter reports (\\d+)") > 10,
                 qPrintable(demo->output()));
        QVERIFY2(demo->output().contains(QStringLiteral("engine 127.20.21.22: receiving")),
                 qPrintable(demo->output()));
    }
}

void ProgramTest::silentEngineIsAFailure()
{
    QUdpSocket engine;
    QVERIFY(engine.bind(QHostAddress(silentEngine()), enginePort));
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless=1"), QStringLiteral("--page=mixer")}, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 1);
    QCOMPARE(demo.ownErrors(),
             QStringList{
                 QStringLiteral("zelta-demo: nothing of this reached the screen: pad hits, meter reports")});
    QVERIFY2(demo.output().contains(QStringLiteral("no signal")), qPrintable(demo.output()));
}

void ProgramTest::windowEndsOnSigterm()
{
    QUdpSocket engine;
    QVERIFY(engine.bind(QHostAddress(windowEngine()), enginePort));
    Program demo(QStringLiteral(DEMO_PROGRAM), {QStringLiteral("--page"), QStringLiteral("mixer")},
                 windowEngine());
    // The screen requests the levels as soon as it is shown.
    QTRY_VERIFY_WITH_TIMEOUT(engine.hasPendingDatagrams(), startPatience);
    QCOMPARE(demo.state(), QProcess::Running);
    demo.terminate();
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 0);
    QCOMPARE(demo.ownErrors(), QStringList());
}

void ProgramTest::brokenModuleIsAFailure()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    Program demo(
        QStringLiteral(DEMO_PROGRAM),
        {QStringLiteral("--headless"), QStringLiteral("1"), QStringLiteral("--import"), folder.path()},
        silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 1);
    const QStringList complaints = demo.ownErrors();
    QCOMPARE(complaints.size(), 1);
    QVERIFY2(complaints.first().contains(QStringLiteral("notthere")), qPrintable(demo.errors()));
}

// With such a value the module would use the address of the real engine. The program finds no module, so that
// it cannot do so even if the check is missing.
void ProgramTest::unreadableEngineAddressIsRefused()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless"), QStringLiteral("--import"), folder.path()},
                 QStringLiteral("127.1"));
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 2);
    QCOMPARE(demo.errors(), QStringLiteral("zelta-demo: ZELTACONNECT_ENGINE takes an IPv4 address, or "
                                           "address:port, not 127.1\n"));
}

void ProgramTest::wrongOptionIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");

    const auto row = [](const char *name, const QString &arguments, const char *named) {
        QTest::newRow(name) << arguments.split(QLatin1Char(' ')) << QString::fromLatin1(named);
    };
    row("unknown option", QStringLiteral("--headles"), "--headles");
    row("stray word", QStringLiteral("kit"), "kit");
    row("seconds not a number", QStringLiteral("--headless soon"), "soon");
    row("seconds zero", QStringLiteral("--headless 0"), "0");
    row("seconds not finite", QStringLiteral("--headless nan"), "nan");
    row("page without a name", QStringLiteral("--page"), "--page");
    row("size without a height", QStringLiteral("--size 1024"), "not 1024");
    row("size too small", QStringLiteral("--size 319x600"), "not 319x600");
    row("size too large", QStringLiteral("--size 1024x4321"), "not 1024x4321");
    row("size of words", QStringLiteral("--size widexhigh"), "not widexhigh");
    row("unknown page", QStringLiteral("--page drums"), "drums");
    row("pictures of a window", QStringLiteral("--screenshots /tmp"), "--headless");
    row("import folder missing", QStringLiteral("--import /no/such/folder"), "/no/such/folder");
    row("files folder missing", QStringLiteral("--files /no/such/folder"), "/no/such/folder");
    row("value missing after the sign", QStringLiteral("--import="), "--import needs a value");
    row("joined seconds zero", QStringLiteral("--headless=0"), "not 0");
    row("joined seconds missing", QStringLiteral("--headless="), "--headless");
    row("value looks like an option", QStringLiteral("--page --headless"), "--page");
}

void ProgramTest::wrongOptionIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    Program demo(QStringLiteral(DEMO_PROGRAM), arguments, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 2);
    QCOMPARE(demo.output(), QString());
    QCOMPARE(demo.errors().count(QLatin1Char('\n')), 1);
    QVERIFY2(demo.errors().startsWith(QStringLiteral("zelta-demo: ")), qPrintable(demo.errors()));
    QVERIFY2(demo.errors().contains(named), qPrintable(demo.errors()));
}

void ProgramTest::runRefusesSeconds_data()
{
    QTest::addColumn<QString>("seconds");
    for (const char *seconds : {"0", "3601", "99999999999999999999"})
        QTest::newRow(seconds) << QString::fromLatin1(seconds);
}

// The script checks the number before it builds anything.
void ProgramTest::runRefusesSeconds()
{
    QFETCH(QString, seconds);
    Program script(QStringLiteral(RUN_SCRIPT), {QStringLiteral("--headless"), seconds}, silentEngine());
    // If the script starts to build, its first output makes the test stop it.
    QTRY_VERIFY_WITH_TIMEOUT(script.state() == QProcess::NotRunning || !script.output().isEmpty(),
                             endPatience);
    QCOMPARE(script.output(), QString());
    QCOMPARE(script.exitCode(), 2);
    QCOMPARE(script.errors(),
             QStringLiteral("run: --headless takes 1 to 3600 seconds, not %1\n").arg(seconds));
}

void ProgramTest::helpAndVersion_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("start");
    QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("Usage: zelta-demo");
    QTest::newRow("short help") << QStringLiteral("-h") << QStringLiteral("Usage: zelta-demo");
    QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("zelta-demo 1.");
}

void ProgramTest::helpAndVersion()
{
    QFETCH(QString, option);
    QFETCH(QString, start);
    Program demo(QStringLiteral(DEMO_PROGRAM), {option}, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitCode(), 0);
    QVERIFY2(demo.output().startsWith(start), qPrintable(demo.output()));
    QCOMPARE(demo.errors(), QString());
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "tst_program.moc"
