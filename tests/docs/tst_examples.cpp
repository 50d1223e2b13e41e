// The QML examples of README.md and docs/screen-guide.md run unchanged, and the guide's tables are right.

#include "docs/markdown.h"
#include "docs/screen.h"
#include "support/datagram.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/patience.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace docs;
using namespace testsupport;

namespace {

const char *const levelRequest = "IM 0003 0BB9633B 0BB9621F 0BB90600";

// The QML of a block of shell commands, between the lines with END.
QString hereDocument(const Block &block)
{
    const QString whole = block.lines.join(QLatin1Char('\n'));
    return whole.section(QStringLiteral("<<'END'\n"), 1).section(QStringLiteral("\nEND"), 0, 0);
}

bool isVisibleText(const QObject *item, const QString &text)
{
    return item->property("text").toString() == text && item->property("visible").toBool();
}

} // namespace

class ExamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyExampleRuns_data();
    void everyExampleRuns();
    void readmeSetsTheMasterLevel();
    void ownScreenPrintsHits();
    void firstFrameComesBeforeTheModule();
    void heartbeatShowsTheConnection();
    void padNamesAreShown();
    void onlySlotsAreDeleted();
    void filesAreSentByUrl();
    void padTable();
    void valuesThatSurprise_data();
    void valuesThatSurprise();

private:
    QString exampleWith(const QString &text) const;

    QList<Block> m_examples;
    Markdown m_readme;
    Markdown m_guide;
    EnginePeer m_peer;
};

void ExamplesTest::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    m_readme = readMarkdown(QStringLiteral("README.md"));
    m_guide = readMarkdown(QStringLiteral("docs/screen-guide.md"));
    const QString qml = QStringLiteral("qml");
    QVERIFY(!m_readme.blocksInLanguage(qml).isEmpty());
    QVERIFY(!m_guide.blocksInLanguage(qml).isEmpty());
    m_examples = m_readme.blocksInLanguage(qml) + m_guide.blocksInLanguage(qml);
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
}

// The only example that contains a text.
QString ExamplesTest::exampleWith(const QString &text) const
{
    QStringList found;
    for (const Block &block : m_examples) {
        const QString source = block.lines.join(QLatin1Char('\n'));
        if (source.contains(text))
            found += source;
    }
    return found.size() == 1 ? found.first() : QString();
}

void ExamplesTest::everyExampleRuns_data()
{
    QTest::addColumn<QString>("source");
    for (const Block &block : qAsConst(m_examples)) {
        QTest::addRow("line %d: %s", block.line, qPrintable(block.lines.value(4)))
            << block.lines.join(QLatin1Char('\n'));
    }
}

void ExamplesTest::everyExampleRuns()
{
    QFETCH(QString, source);
    m_peer.discardPending();
    LogCatcher log;
    const Screen screen(source);
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QTRY_VERIFY_WITH_TIMEOUT(screen.module(), patienceMs);
    // The engine sends strikes only to a module that has sent a datagram.
    if (source.contains(QLatin1String("onNoteChanged"))) {
        QCOMPARE(m_peer.next(), datagram(levelRequest));
        QVERIFY(m_peer.send(datagram("IM AC 9909 4026")));
        QTRY_COMPARE_WITH_TIMEOUT(screen.module()->property("note").toUInt(), 0x00012640U, patienceMs);
    }
    QCOMPARE(log.warnings(), QStringList());
}

void ExamplesTest::readmeSetsTheMasterLevel()
{
    m_peer.discardPending();
    const Screen screen(exampleWith(QStringLiteral("setMasterOutLevel")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));

    QObject *slider = nullptr;
    const auto *item = qobject_cast<QQuickItem *>(screen.root());
    QVERIFY(item);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (child->property("to").toDouble() == 127.0)
            slider = child;
    }
    QVERIFY(slider);
    QVERIFY(slider->setProperty("value", 127.0));
    QVERIFY(QMetaObject::invokeMethod(slider, "moved"));
    QCOMPARE(m_peer.next(), datagram("IM 0003 0BB96338 0BB96207 0BB9067F"));
}

void ExamplesTest::ownScreenPrintsHits()
{
    QString source;
    const QList<Block> blocks = m_readme.blocksInLanguage(QStringLiteral("sh"));
    for (const Block &block : blocks)
        source += hereDocument(block);
    m_peer.discardPending();
    LogCatcher log;
    const Screen screen(source);
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QVERIFY(m_peer.send(datagram("IM AC 9909 4026")));
    QTRY_VERIFY_WITH_TIMEOUT(log.debugTexts("qml").contains(QStringLiteral("pad 1 velocity 64")), patienceMs);
    QCOMPARE(log.warnings(), QStringList());
}

void ExamplesTest::firstFrameComesBeforeTheModule()
{
    m_peer.discardPending();
    const Screen screen(exampleWith(QStringLiteral("onFrameSwapped")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QVERIFY(!screen.module());
    const auto *window = qobject_cast<QQuickWindow *>(screen.root());
    QVERIFY(window);
    const QObject *text = window->contentItem()->childItems().value(0);
    QVERIFY(text);
    QVERIFY(isVisibleText(text, QStringLiteral("Waiting for the engine")));
    QTRY_VERIFY_WITH_TIMEOUT(screen.module(), patienceMs);
    QVERIFY(!isVisibleText(text, QStringLiteral("Waiting for the engine")));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
}

void ExamplesTest::heartbeatShowsTheConnection()
{
    m_peer.discardPending();
    const Screen screen(exampleWith(QStringLiteral("no signal")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QVERIFY(!screen.root()->property("connected").toBool());
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    QVERIFY(m_peer.send(datagram("DR") + QByteArray(36, '\0')));
    QTRY_VERIFY_WITH_TIMEOUT(screen.root()->property("connected").toBool(), patienceMs);
    // From here on the peer does not answer.
    QTRY_VERIFY_WITH_TIMEOUT(!screen.root()->property("connected").toBool(), patienceMs);
}

void ExamplesTest::padNamesAreShown()
{
    m_peer.discardPending();
    const Screen screen(exampleWith(QStringLiteral("readonly property var names")));
    QVERIFY2(screen.root(), qPrintable(screen.errorString()));
    QCOMPARE(m_peer.next(), datagram(levelRequest));
    const QList<Table> tables =
        m_guide.tablesWithColumns({QStringLiteral("Pad"), QStringLiteral("Name"), QStringLiteral("Zone 0"),
                                   QStringLiteral("Zone 1"), QStringLiteral("Zone 2")});
    QCOMPARE(tables.size(), 1);
    for (const QStringList &row : tables.first().rows) {
        const int note = row.value(2).section(QLatin1Char(','), 0, 0).toInt();
        QVERIFY(m_peer.send(datagram("IM AC 9909 40") + char(note)));
        QTRY_COMPARE_WITH_TIMEOUT(screen.root()->property("text").toString(),
                                  QStringLiteral("%1, zone 0, velocity 64").arg(row.value(1)), patienceMs);
    }
}

void ExamplesTest::onlySlotsAreDeleted()
{
    const Screen screen(exampleWith(QStringLiteral("Number.isInteger")));
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    QVERIFY(m_peer.connectTo(screen.module()));
    for (const char *call : {"remove(undefined)", "remove(null)", "remove(-1)", "remove(NaN)", "remove(128)",
                             "remove('1')", "remove(1.5)", "remove()"}) {
        QQmlExpression expression(QQmlEngine::contextForObject(screen.root()), screen.root(),
                                  QString::fromLatin1(call));
        expression.evaluate();
        QVERIFY2(!expression.hasError(), call);
        QVERIFY2(m_peer.nothingSentBy(screen.module()), call);
    }
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "remove", Q_ARG(QVariant, 5)));
    QCOMPARE(m_peer.next(), datagram("IM 0003 0BB9633D 0BB96270 0BB90605"));
}

void ExamplesTest::filesAreSentByUrl()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QFile file(folder.filePath(QStringLiteral("my kit 100%.bin")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("1234567"), 7);
    file.close();

    const Screen screen(exampleWith(QStringLiteral("function pathOf(url)")));
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    QVERIFY(m_peer.connectTo(screen.module()));
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "send",
                                      Q_ARG(QVariant, QUrl::fromLocalFile(file.fileName()))));
    // The start packet of a sound bank, with the size of the file.
    QCOMPARE(m_peer.next(), datagram("DS SB 00000007"));
}

// Every note of the table is reported with its pad and zone. No other note is reported.
void ExamplesTest::padTable()
{
    QHash<int, int> places;
    const QList<Table> tables =
        m_guide.tablesWithColumns({QStringLiteral("Pad"), QStringLiteral("Name"), QStringLiteral("Zone 0"),
                                   QStringLiteral("Zone 1"), QStringLiteral("Zone 2")});
    QCOMPARE(tables.size(), 1);
    for (const QStringList &row : tables.first().rows) {
        for (int zone = 0; zone < 3; ++zone) {
            const QStringList notes = row.value(2 + zone).split(QStringLiteral(", "));
            for (const QString &note : notes) {
                if (!note.isEmpty())
                    places.insert(note.toInt(), row.first().toInt() << 16 | zone << 24);
            }
        }
    }

    const Screen screen(QStringLiteral("import ZeltaConnect 1.0\nZeltaConnect {}"));
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    QVERIFY(m_peer.connectTo(screen.module()));
    constexpr int noteCount = 128;
    constexpr int firstPadWithPressure = 6;
    constexpr int pressureZone = 4;
    for (int note = 0; note < noteCount; ++note) {
        const uint strikeBefore = screen.module()->property("note").toUInt();
        const uint pressureBefore = screen.module()->property("afterTouchNote").toUInt();
        QVERIFY(m_peer.send(datagram("IM AC 9909 01") + char(note)));
        QVERIFY(m_peer.send(datagram("IM AC A90A 01") + char(note)));
        QVERIFY(m_peer.settle(screen.module()));
        const int place = places.value(note);
        const bool isStruck = places.contains(note);
        const bool isPressed = isStruck && (place >> 16 & 0xF) >= firstPadWithPressure;
        QCOMPARE(screen.module()->property("note").toUInt(),
                 isStruck ? uint(place | note << 8 | 1) : strikeBefore);
        QCOMPARE(screen.module()->property("afterTouchNote").toUInt(),
                 isPressed ? uint((place & 0xF0000) | pressureZone << 24 | note << 8 | 1) : pressureBefore);
    }
}

void ExamplesTest::valuesThatSurprise_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("data");
    const QList<Table> tables = m_guide.tablesWithColumns(
        {QStringLiteral("Call"), QStringLiteral("Data sent"), QStringLiteral("Reason")});
    QCOMPARE(tables.size(), 1);
    for (const QStringList &row : tables.first().rows)
        QTest::newRow(qPrintable(row.first())) << withoutBackticks(row.value(0)) << row.value(1).toInt();
}

void ExamplesTest::valuesThatSurprise()
{
    QFETCH(QString, call);
    QFETCH(int, data);
    const Screen screen(QStringLiteral("import ZeltaConnect 1.0\nZeltaConnect {}"));
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    QVERIFY(m_peer.connectTo(screen.module()));
    const LogCatcher log;
    QQmlExpression expression(QQmlEngine::contextForObject(screen.module()), screen.module(), call);
    expression.evaluate();
    QVERIFY2(!expression.hasError(), qPrintable(expression.error().toString()));
    const QStringList conversions = log.warnings();
    QCOMPARE(conversions.join(QString()).contains(QLatin1String("Could not convert argument")),
             call == QLatin1String("deleteIsSlot(undefined)") || call == QLatin1String("deleteIsSlot(null)"));
    const QByteArray datagram = m_peer.next();
    QVERIFY(!datagram.isEmpty());
    QCOMPARE(int(quint8(datagram.back())), data);
    QVERIFY(m_peer.nothingSentBy(screen.module()));
}

int main(int argc, char *argv[])
{
    // The examples print with console.log(), whose output is disabled in other tests.
    qputenv("QT_LOGGING_RULES", qgetenv("QT_LOGGING_RULES") + ";qml.debug=true");
    QGuiApplication application(argc, argv);
    ExamplesTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_examples.moc"
