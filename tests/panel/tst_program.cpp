// The program zelta-panel: options, pictures, exit status.

#include "support/datagram.h"

#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

namespace {

constexpr int patience = 120000;

// The program without a display.
class Program : public QProcess
{
public:
    explicit Program(const QStringList &arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
        setProcessEnvironment(environment);
        setStandardInputFile(nullDevice());
        start(QStringLiteral(PANEL_PROGRAM), arguments);
    }
    ~Program() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished();
        }
    }

    bool waitToEnd() { return state() == NotRunning || waitForFinished(patience); }
    QString output() { return QString::fromLocal8Bit(readAllStandardOutput()); }
    // Without the lines of Qt.
    QStringList errors()
    {
        return QString::fromLocal8Bit(readAllStandardError())
            .split(QLatin1Char('\n'))
            .filter(QRegularExpression(QStringLiteral("^zelta-panel: ")));
    }
    bool waitForListening()
    {
        QString text;
        return QTest::qWaitFor(
                   [this, &text] {
                       text += output();
                       return text.contains(QStringLiteral("listening on " PANEL_ADDRESS)) ||
                              state() == NotRunning;
                   },
                   patience) &&
               state() == Running;
    }
};

} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesPictures_data();
    void takesPictures();
    void picturesThatCannotBeSavedAreAFailure();
    void isTheEngineOfAModule();
    void endsOnSigterm();
    void addressInUseIsRefused();
    void wrongOptionIsRefused_data();
    void wrongOptionIsRefused();
    void helpAndVersion_data();
    void helpAndVersion();
};

void ProgramTest::takesPictures_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024x600") << QSize(1024, 600);
    QTest::newRow("1280x800") << QSize(1280, 800);
}

void ProgramTest::takesPictures()
{
    QFETCH(QSize, size);
    QTemporaryDir folder;
    Program program({QStringLiteral("--listen"), QStringLiteral(PANEL_ADDRESS ":0"),
                     QStringLiteral("--headless"), QStringLiteral("2"), QStringLiteral("--size"),
                     QString::fromLatin1(QTest::currentDataTag()), QStringLiteral("--screenshots"),
                     folder.filePath(QStringLiteral("new"))});
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.errors(), QStringList());
    QCOMPARE(program.exitCode(), 0);
    QVector<QImage> pictures;
    for (const char *page : {"", "-parameters", "-failures", "-meters", "-answers"}) {
        const QImage picture(
            folder.filePath(QStringLiteral("new/screenshot-panel%1.png").arg(QLatin1String(page))));
        QVERIFY2(picture.size() == size, page);
        QVERIFY2(!pictures.contains(picture), page);
        pictures.append(picture);
    }
}

void ProgramTest::picturesThatCannotBeSavedAreAFailure()
{
    Program program({QStringLiteral("--listen"), QStringLiteral(PANEL_ADDRESS ":0"),
                     QStringLiteral("--headless=1"), QStringLiteral("--screenshots"),
                     QStringLiteral("/dev/null/pictures")});
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(program.errors().contains(
        QStringLiteral("zelta-panel: cannot save /dev/null/pictures/screenshot-panel.png")));
}

void ProgramTest::isTheEngineOfAModule()
{
    Program program({QStringLiteral("--listen"), QStringLiteral(PANEL_ADDRESS), QStringLiteral("--groove")});
    QVERIFY(program.waitForListening());
    QUdpSocket module;
    QVERIFY(module.bind(QHostAddress(QHostAddress::LocalHost), 0));
    QList<QByteArray> received;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            if (received.isEmpty())
                module.writeDatagram(QByteArrayLiteral("VN\0\0"), QHostAddress(QStringLiteral(PANEL_ADDRESS)),
                                     19797);
            while (module.hasPendingDatagrams()) {
                QByteArray bytes(64, '\0');
                bytes.resize(int(module.readDatagram(bytes.data(), bytes.size())));
                received.append(bytes);
            }
            const auto has = [&received](const char *start) {
                return std::any_of(received.begin(), received.end(), [start](const QByteArray &datagram) {
                    return datagram.startsWith(testsupport::datagram(start));
                });
            };
            // Version, tempo, a hit and meters.
            return has("VN AC") && has("TM AC") && has("IM AC 9909") && has("DR");
        }(),
        patience);
}

void ProgramTest::endsOnSigterm()
{
    Program program({QStringLiteral("--listen"), QStringLiteral(PANEL_ADDRESS ":0")});
    QVERIFY(program.waitForListening());
    program.terminate();
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

void ProgramTest::addressInUseIsRefused()
{
    QUdpSocket other;
    QVERIFY(
        other.bind(QHostAddress(QStringLiteral(PANEL_ADDRESS)), 19797, QAbstractSocket::DontShareAddress));
    Program program({QStringLiteral("--listen"), QStringLiteral(PANEL_ADDRESS)});
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitCode(), 1);
    const QStringList errors = program.errors();
    QCOMPARE(errors.size(), 1);
    QVERIFY(
        errors.first().startsWith(QStringLiteral("zelta-panel: cannot listen on " PANEL_ADDRESS ":19797: ")));
}

void ProgramTest::wrongOptionIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const char *name, const char *arguments, const char *named) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                            << QString::fromLatin1(named);
    };
    row("unknown option", "--headles", "--headles");
    row("stray word", "drums", "drums");
    row("address shortened", "--listen 127.1", "127.1");
    row("address missing", "--listen", "--listen");
    row("port not a number", "--listen 127.0.0.1:x", "127.0.0.1:x");
    row("port too large", "--listen 127.0.0.1:65536", "65536");
    row("host name", "--listen localhost", "localhost");
    row("size too small", "--size 1023x600", "1023x600");
    row("size too large", "--size 99999x600", "99999x600");
    row("size not a size", "--size large", "large");
    row("seconds zero", "--headless 0", "not 0");
    row("seconds not finite", "--headless nan", "nan");
    row("pictures of a window", "--screenshots /tmp", "--headless");
}

void ProgramTest::wrongOptionIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    Program program(arguments);
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    const QStringList errors = program.errors();
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().contains(named), qPrintable(errors.first()));
}

void ProgramTest::helpAndVersion_data()
{
    QTest::addColumn<QString>("start");
    QTest::newRow("--help") << QStringLiteral("Usage: zelta-panel");
    QTest::newRow("-h") << QStringLiteral("Usage: zelta-panel");
    QTest::newRow("--version") << QStringLiteral("zelta-panel 1.");
}

void ProgramTest::helpAndVersion()
{
    QFETCH(QString, start);
    Program program({QString::fromLatin1(QTest::currentDataTag())});
    QVERIFY(program.waitToEnd());
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(program.output().startsWith(start));
    QCOMPARE(program.errors(), QStringList());
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "tst_program.moc"
