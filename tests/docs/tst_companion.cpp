// The QML examples of docs/companion.md run unchanged, and the guide's table of pads has the notes of Kit.

#include "docs/markdown.h"
#include "docs/screen.h"
#include "support/datagram.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace docs;
using namespace testsupport;

namespace {

const char *const levelRequest = "IM 0003 0BB9633B 0BB9621F 0BB90600";
const char *const snare = "IM AC 9909 4026";
const char *const choke = "IM AC A90A 7F31";

/// An example, and what its root object shows.
class Example : public Screen
{
public:
    using Screen::Screen;

    QString text() const { return root()->property("text").toString(); }

    QVariant evaluate(const QString &code)
    {
        QQmlExpression expression(QQmlEngine::contextForObject(root()), root(), code);
        const QVariant value = expression.evaluate();
        if (expression.hasError())
            qWarning() << expression.error().toString();
        return value;
    }
};

} // namespace

class CompanionGuideTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyExampleRuns_data();
    void everyExampleRuns();
    void everyTypeHasAnExample();
    void engineShowsTheConnection();
    void firstFrameComesBeforeTheEngine();
    void fileIsSent();
    void kitNamesHits();
    void hitsAreListed();
    void parameterSendsForThePad();
    void padTable();

private:
    QString exampleOf(const QString &type) const;

    QList<Block> m_examples;
    EnginePeer m_peer;
};

void CompanionGuideTest::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    m_examples = readMarkdown(QStringLiteral("docs/companion.md")).blocksInLanguage(QStringLiteral("qml"));
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
}

// The first example with this text.
QString CompanionGuideTest::exampleOf(const QString &text) const
{
    for (const Block &block : m_examples) {
        const QString source = block.lines.join(QLatin1Char('\n'));
        if (source.contains(text))
            return source;
    }
    return {};
}

void CompanionGuideTest::everyExampleRuns_data()
{
    QTest::addColumn<QString>("source");
    for (const Block &block : qAsConst(m_examples))
        QTest::addRow("line %d", block.line) << block.lines.join(QLatin1Char('\n'));
}

void CompanionGuideTest::everyExampleRuns()
{
    QFETCH(const QString, source);
    m_peer.discardPending();
    const LogCatcher log;
    const Example screen(source);
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    // Each example has an engine, which sends a request when it is created.
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QCOMPARE(log.warnings(), QStringList());
}

void CompanionGuideTest::everyTypeHasAnExample()
{
    for (const char *type : {"Engine {", "FileTransfer {", "Kit.", "HitModel {", "Parameter {"})
        QVERIFY2(!exampleOf(QLatin1String(type)).isEmpty(), type);
}

void CompanionGuideTest::engineShowsTheConnection()
{
    m_peer.discardPending();
    const LogCatcher log;
    const Example screen(exampleOf(QStringLiteral("events/s")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QVERIFY(screen.text().startsWith(QStringLiteral("no signal for")));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QVERIFY(m_peer.send(datagram(snare)));
    QTRY_VERIFY_WITH_TIMEOUT(screen.text().endsWith(QStringLiteral("events/s")), patienceMs);
    QVERIFY(log.debugTexts("qml").contains(QStringLiteral("struck: Snare")));
    // From here on the engine does not answer, until it has been silent for too long.
    QTRY_VERIFY_WITH_TIMEOUT(screen.text().startsWith(QStringLiteral("no signal for 3")), patienceMs);
    QVERIFY(m_peer.send(datagram(snare)));
    QTRY_VERIFY_WITH_TIMEOUT(log.debugTexts("qml").contains(QStringLiteral("send the settings again")),
                             patienceMs);
    QCOMPARE(log.warnings(), QStringList());
}

void CompanionGuideTest::firstFrameComesBeforeTheEngine()
{
    m_peer.discardPending();
    const Example screen(exampleOf(QStringLiteral("onFrameSwapped")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    const auto *window = qobject_cast<QQuickWindow *>(screen.root());
    QVERIFY(window);
    const QQuickItem *text = window->contentItem()->childItems().value(0);
    QVERIFY(text && text->isVisible());
    QCOMPARE(text->property("text").toString(), QStringLiteral("Waiting for the engine"));
    QCOMPARE(m_peer.discardPending(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!text->isVisible(), patienceMs);
    QCOMPARE(m_peer.next(), datagram(levelRequest));
}

void CompanionGuideTest::fileIsSent()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("my snare 100%.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("1234567") == 7);
    file.close();
    m_peer.discardPending();
    const LogCatcher log;
    Example screen(exampleOf(QStringLiteral("FileTransfer {")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QVERIFY(screen.evaluate(QStringLiteral("send()")).toBool());
    QTRY_COMPARE_WITH_TIMEOUT(screen.text(), QStringLiteral("There is no file /media/usb/snare.wav."),
                              patienceMs);
    QCOMPARE(log.debugTexts("qml"),
             QStringList(QStringLiteral("reason 7: There is no file /media/usb/snare.wav.")));

    screen.root()->setProperty("source", QUrl::fromLocalFile(file.fileName()));
    QVERIFY(screen.evaluate(QStringLiteral("send()")).toBool());
    QByteArray datagram;
    do
        datagram = m_peer.next();
    while (datagram == testsupport::datagram(levelRequest));
    QCOMPARE(datagram, testsupport::datagram("DS IW 00000007 000C") + "my snare 100%.wav" + '\0');
    do
        datagram = m_peer.next();
    while (!datagram.isNull() && !datagram.startsWith("DE"));
    QVERIFY(m_peer.send(testsupport::datagram("DE AC 0000 0000")));
    QTRY_COMPARE_WITH_TIMEOUT(screen.text(), QStringLiteral("The engine has the file."), patienceMs);
    QVERIFY(log.debugTexts("qml").endsWith(QStringLiteral("sent, 0 times repeated")));
    QCOMPARE(log.warnings(), QStringList());
}

void CompanionGuideTest::kitNamesHits()
{
    m_peer.discardPending();
    const Example screen(exampleOf(QStringLiteral("model: Kit.pads")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    const auto *row = qobject_cast<QQuickItem *>(screen.root());
    QVERIFY(row);
    QCOMPARE(row->childItems().value(1)->property("text").toString(), QStringLiteral("Snare 38"));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QVERIFY(m_peer.send(datagram(snare)));
    QTRY_COMPARE_WITH_TIMEOUT(row->property("latest").toString(), QStringLiteral("Snare, Head, 64"),
                              patienceMs);
    QVERIFY(m_peer.send(datagram(choke)));
    QTRY_COMPARE_WITH_TIMEOUT(row->property("latest").toString(), QStringLiteral("Crash 1 choked"),
                              patienceMs);
}

void CompanionGuideTest::hitsAreListed()
{
    m_peer.discardPending();
    const LogCatcher log;
    const Example screen(exampleOf(QStringLiteral("HitModel {")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    for (int i = 0; i < 10; ++i)
        QVERIFY(m_peer.send(datagram(snare)));
    QTRY_COMPARE_WITH_TIMEOUT(log.debugTexts("qml").count(QStringLiteral("Snare")), 10, patienceMs);
    QCOMPARE(screen.root()->property("count").toInt(), 8);
}

void CompanionGuideTest::parameterSendsForThePad()
{
    m_peer.discardPending();
    const Example screen(exampleOf(QStringLiteral("Parameter {")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QQuickItem *slider = qobject_cast<QQuickItem *>(screen.root())->childItems().value(0);
    slider->setProperty("value", 5);
    QVERIFY(QMetaObject::invokeMethod(slider, "moved"));
    QByteArray datagram;
    do
        datagram = m_peer.next();
    while (datagram == testsupport::datagram(levelRequest));
    // The low gain of the pad with note 38: 5 dB.
    QCOMPARE(datagram.left(12), testsupport::datagram("IM 0003 0BB96321 0BB96226"));
    screen.root()->setProperty("pad", 2);
    QCOMPARE(slider->property("value").toInt(), 0);
}

void CompanionGuideTest::padTable()
{
    Example screen(QStringLiteral("import QtQml 2.12\nimport ZeltaConnect.Companion 1.0\n"
                                  "QtObject { property string pads: JSON.stringify(Kit.pads) }"));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    const QJsonArray pads =
        QJsonDocument::fromJson(screen.root()->property("pads").toString().toUtf8()).array();
    const QList<Table> tables =
        readMarkdown(QStringLiteral("docs/screen-guide.md"))
            .tablesWithColumns({QStringLiteral("Pad"), QStringLiteral("Name"), QStringLiteral("Zone 0"),
                                QStringLiteral("Zone 1"), QStringLiteral("Zone 2")});
    QCOMPARE(tables.size(), 1);
    QCOMPARE(tables.first().rows.size(), pads.size());
    for (int i = 0; i < pads.size(); ++i) {
        const QStringList &row = tables.first().rows.at(i);
        const QJsonObject pad = pads.at(i).toObject();
        QCOMPARE(row.value(0).toInt(), i);
        QCOMPARE(pad.value(QStringLiteral("pad")).toInt(-1), i);
        QCOMPARE(pad.value(QStringLiteral("name")).toString(), row.value(1));
        const QJsonArray zones = pad.value(QStringLiteral("zones")).toArray();
        for (int zone = 0; zone < 3; ++zone) {
            QStringList notes;
            const QJsonArray all = zones.at(zone).toObject().value(QStringLiteral("notes")).toArray();
            for (const QJsonValue &note : all)
                notes.append(QString::number(note.toInt()));
            notes.sort();
            QCOMPARE(notes.join(QStringLiteral(", ")), row.value(2 + zone));
        }
    }
}

int main(int argc, char *argv[])
{
    // The examples print with console.log(), whose output is disabled in other tests.
    qputenv("QT_LOGGING_RULES", qgetenv("QT_LOGGING_RULES") + ";qml.debug=true");
    QGuiApplication application(argc, argv);
    CompanionGuideTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_companion.moc"
