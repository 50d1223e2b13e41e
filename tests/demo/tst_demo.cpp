// What a person or a script sees of zelta-demo: its exit status, its report, its pictures.

#include <QImage>
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

// What a program has said so far, kept whole so that nothing is read twice or missed.
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

    QString said()
    {
        m_said += QString::fromLocal8Bit(readAllStandardOutput());
        return m_said;
    }
    QString complained()
    {
        m_complained += QString::fromLocal8Bit(readAllStandardError());
        return m_complained;
    }
    bool waitToSay(const QString &text)
    {
        return QTest::qWaitFor([this, text] { return said().contains(text) || state() == NotRunning; },
                               startPatience) &&
               said().contains(text);
    }
    bool waitToEnd() { return state() == NotRunning || waitForFinished(endPatience); }
    // Lines of its own on standard error; Qt has things to say there too on a bare machine.
    QStringList ownComplaints()
    {
        return complained()
            .split(QLatin1Char('\n'))
            .filter(QRegularExpression(QStringLiteral("^zelta-demo: ")));
    }

private:
    QString m_said;
    QString m_complained;
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

// A module that no program can load.
bool makeBrokenModule(const QTemporaryDir &folder)
{
    QFile listing(folder.filePath(QStringLiteral("ZeltaConnect/qmldir")));
    return QDir(folder.path()).mkdir(QStringLiteral("ZeltaConnect")) && listing.open(QIODevice::WriteOnly) &&
           listing.write("module ZeltaConnect\nplugin notthere\n") > 0;
}

} // namespace

class tst_Demo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tourReportsAndTakesPictures();
    void transferEndsInWords_data();
    void transferEndsInWords();
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

void tst_Demo::tourReportsAndTakesPictures()
{
    Program engine(QStringLiteral(ENGINE_PROGRAM),
                   {QStringLiteral("--listen"), playingEngine(), QStringLiteral("--groove"),
                    QStringLiteral("--verbose")},
                   playingEngine());
    QVERIFY2(engine.waitToSay(QStringLiteral("listening on")), qPrintable(engine.complained()));

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
    QVERIFY2(demo.exitCode() == 0, qPrintable(demo.complained()));

    QVERIFY2(numberIn(demo.said(), "^to screen: +pad hits (\\d+)") > 0, qPrintable(demo.said()));
    QVERIFY2(numberIn(demo.said(), "^to screen: .*meter reports (\\d+)") > 10, qPrintable(demo.said()));
    QVERIFY2(numberIn(demo.said(), "^to screen: .*beats (\\d+)") > 0, qPrintable(demo.said()));
    QVERIFY2(numberIn(demo.said(), "^to screen: .*compressor reports (\\d+)") > 0, qPrintable(demo.said()));
    QVERIFY2(numberIn(demo.said(), "^from screen: (\\d+) control changes") > 20, qPrintable(demo.said()));

    QVERIFY2(demo.said().contains(QStringLiteral("transfer:    Sound bank: arrived whole")),
             qPrintable(demo.said()));

    // The level that the screen shows last is the level that the engine was told last.
    const QString levelHeard = QStringLiteral("mixer master out level");
    QVERIFY2(engine.waitToSay(levelHeard), qPrintable(engine.said()));
    const int shown = numberIn(demo.said(), "last master level (\\d+)$");
    QVERIFY(shown >= 0);
    QCOMPARE(lastNumberIn(engine.said(), "^mixer master out level (\\d+)$"), shown);

    const QStringList names{QStringLiteral("screenshot"),           QStringLiteral("screenshot-mixer"),
                            QStringLiteral("screenshot-equaliser"), QStringLiteral("screenshot-compressor"),
                            QStringLiteral("screenshot-effects"),   QStringLiteral("screenshot-metronome"),
                            QStringLiteral("screenshot-padsound"),  QStringLiteral("screenshot-update")};
    QVector<QImage> pictures;
    for (const QString &name : names) {
        const QImage picture(
            folder.filePath(QStringLiteral("new/pictures/") + name + QStringLiteral(".png")));
        QVERIFY2(picture.size() == QSize(1280, 800), qPrintable(name));
        // The page is right of the navigation bar and above the status strip; every page is another one.
        const QImage page = picture.copy(110, 0, 1170, 738);
        QVERIFY2(!pictures.contains(page), qPrintable(name));
        pictures.append(page);
    }
}

void tst_Demo::transferEndsInWords_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("packets");
    QTest::addColumn<QString>("words");

    QTest::newRow("memory full") << QStringLiteral("memory-full-e1=3") << 10000
                                 << QStringLiteral("Sound bank: the engine's memory is full");
    QTest::newRow("refused") << QStringLiteral("refuse-e5=3") << 2000
                             << QStringLiteral("Sound bank: the engine refused it (e5)");
    QTest::newRow("damaged") << QStringLiteral("bad-checksum") << 2000
                             << QStringLiteral("Sound bank: arrived damaged (1)");
    QTest::newRow("sent again") << QStringLiteral("resend=3") << 2000
                                << QStringLiteral("Sound bank: arrived whole");
    // No signal of the module tells.
    QTest::newRow("broken off") << QStringLiteral("resend-past-end=3") << 10000
                                << QStringLiteral("Sound bank: broken off, ");
}

void tst_Demo::transferEndsInWords()
{
    QFETCH(const QString, failure);
    QFETCH(const int, packets);
    QFETCH(const QString, words);
    Program engine(QStringLiteral(ENGINE_PROGRAM),
                   {QStringLiteral("--listen"), playingEngine(), QStringLiteral("--groove"),
                    QStringLiteral("--fail"), failure},
                   playingEngine());
    QVERIFY2(engine.waitToSay(QStringLiteral("listening on")), qPrintable(engine.complained()));
    QTemporaryDir folder;
    QFile bank(folder.filePath(QStringLiteral("bank.bin")));
    QVERIFY(bank.open(QIODevice::WriteOnly));
    // Long enough that what the engine wants in its middle comes in time, however slowly the screen is drawn.
    bank.write(QByteArray(1024 * packets, 'b'));
    bank.close();
    Program demo(
        QStringLiteral(DEMO_PROGRAM),
        {QStringLiteral("--headless"), QStringLiteral("1"), QStringLiteral("--files"), folder.path()},
        playingEngine());
    QVERIFY(demo.waitToEnd());
    QVERIFY2(demo.said().contains(QStringLiteral("transfer:    ") + words), qPrintable(demo.said()));
    QCOMPARE(demo.exitCode(), 0);
}

void tst_Demo::silentEngineIsAFailure()
{
    QUdpSocket engine;
    QVERIFY(engine.bind(QHostAddress(silentEngine()), enginePort));
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless=1"), QStringLiteral("--page=mixer")}, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 1);
    QCOMPARE(demo.ownComplaints(),
             QStringList{
                 QStringLiteral("zelta-demo: nothing of this reached the screen: pad hits, meter reports")});
    QVERIFY2(demo.said().contains(QStringLiteral("no signal")), qPrintable(demo.said()));
}

void tst_Demo::windowEndsOnSigterm()
{
    QUdpSocket engine;
    QVERIFY(engine.bind(QHostAddress(windowEngine()), enginePort));
    Program demo(QStringLiteral(DEMO_PROGRAM), {QStringLiteral("--page"), QStringLiteral("mixer")},
                 windowEngine());
    // The screen asks the engine for its levels as soon as it is up.
    QTRY_VERIFY_WITH_TIMEOUT(engine.hasPendingDatagrams(), startPatience);
    QCOMPARE(demo.state(), QProcess::Running);
    demo.terminate();
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 0);
    QCOMPARE(demo.ownComplaints(), QStringList());
}

void tst_Demo::brokenModuleIsAFailure()
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
    const QStringList complaints = demo.ownComplaints();
    QCOMPARE(complaints.size(), 1);
    QVERIFY2(complaints.first().contains(QStringLiteral("notthere")), qPrintable(demo.complained()));
}

// The module would turn to the real engine, so a program that does not refuse shall find no module.
void tst_Demo::unreadableEngineAddressIsRefused()
{
    QTemporaryDir folder;
    QVERIFY(makeBrokenModule(folder));
    Program demo(QStringLiteral(DEMO_PROGRAM),
                 {QStringLiteral("--headless"), QStringLiteral("--import"), folder.path()},
                 QStringLiteral("127.1"));
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 2);
    QCOMPARE(demo.complained(), QStringLiteral("zelta-demo: ZELTACONNECT_ENGINE takes an IPv4 address, or "
                                               "address:port, not 127.1\n"));
}

void tst_Demo::wrongOptionIsRefused_data()
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
    row("unknown page", QStringLiteral("--page drums"), "drums");
    row("pictures of a window", QStringLiteral("--screenshots /tmp"), "--headless");
    row("import folder missing", QStringLiteral("--import /no/such/folder"), "/no/such/folder");
    row("files folder missing", QStringLiteral("--files /no/such/folder"), "/no/such/folder");
    row("value missing after the sign", QStringLiteral("--import="), "--import needs a value");
    row("joined seconds zero", QStringLiteral("--headless=0"), "not 0");
    row("joined seconds missing", QStringLiteral("--headless="), "--headless");
    row("value looks like an option", QStringLiteral("--page --headless"), "--page");
}

void tst_Demo::wrongOptionIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    Program demo(QStringLiteral(DEMO_PROGRAM), arguments, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 2);
    QCOMPARE(demo.said(), QString());
    QCOMPARE(demo.complained().count(QLatin1Char('\n')), 1);
    QVERIFY2(demo.complained().startsWith(QStringLiteral("zelta-demo: ")), qPrintable(demo.complained()));
    QVERIFY2(demo.complained().contains(named), qPrintable(demo.complained()));
}

void tst_Demo::runRefusesSeconds_data()
{
    QTest::addColumn<QString>("seconds");
    for (const char *seconds : {"0", "3601", "99999999999999999999"})
        QTest::newRow(seconds) << QString::fromLatin1(seconds);
}

// The script that builds the demo and starts it looks at the number first of all.
void tst_Demo::runRefusesSeconds()
{
    QFETCH(QString, seconds);
    Program script(QStringLiteral(RUN_SCRIPT), {QStringLiteral("--headless"), seconds}, silentEngine());
    // One that has begun to build is stopped at its first word.
    QTRY_VERIFY_WITH_TIMEOUT(script.state() == QProcess::NotRunning || !script.said().isEmpty(), endPatience);
    QCOMPARE(script.said(), QString());
    QCOMPARE(script.exitCode(), 2);
    QCOMPARE(script.complained(),
             QStringLiteral("run: --headless takes 1 to 3600 seconds, not %1\n").arg(seconds));
}

void tst_Demo::helpAndVersion_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("start");
    QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("Usage: zelta-demo");
    QTest::newRow("short help") << QStringLiteral("-h") << QStringLiteral("Usage: zelta-demo");
    QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("zelta-demo 1.");
}

void tst_Demo::helpAndVersion()
{
    QFETCH(QString, option);
    QFETCH(QString, start);
    Program demo(QStringLiteral(DEMO_PROGRAM), {option}, silentEngine());
    QVERIFY(demo.waitToEnd());
    QCOMPARE(demo.exitCode(), 0);
    QVERIFY2(demo.said().startsWith(start), qPrintable(demo.said()));
    QCOMPARE(demo.complained(), QString());
}

QTEST_GUILESS_MAIN(tst_Demo)
#include "tst_demo.moc"
