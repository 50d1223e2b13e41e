// What the screen uses of the module: every method, property and signal. The test opens each page and
// operates each control. Every call must be a method of the module with that number of arguments.

#include "shellscreen.h"

#include "demo/pages.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/testprogram.h"

#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QJSValue>
#include <QMap>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

using namespace testsupport;

namespace {

// The number of values of the longest choice, so that every control is operated with every choice.
constexpr int passes = 8;

using Items = ShellScreen::Items;

// Members that no screen can use, with the reason.
const QMap<QString, QString> &exceptions()
{
    static const QMap<QString, QString> all = {
        {QStringLiteral("potPacketArrived"), QStringLiteral("input of the pot controller, not for screens")},
        {QStringLiteral("notePacketArrived"), QStringLiteral("input of the pad controller, not for screens")},
    };
    return all;
}

bool has(const QObject *object, const char *signature)
{
    return ShellScreen::has(object, signature);
}

// Tabs and pickers.
bool isChoice(const QQuickItem *item)
{
    return has(item, "chosen(int)") || has(item, "moved(int)");
}

// All items below one, except the parts of a choice and the rows of a list, which show the files of this
// machine.
void collect(QQuickItem *root, Items &items)
{
    items.append(root);
    if (isChoice(root) || root->inherits("QQuickItemView"))
        return;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        collect(child, items);
}

void sendMouse(QQuickItem *item, QEvent::Type type, const QPointF &at, Qt::MouseButtons held)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, at, at, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(item, &event);
}

void touch(QQuickItem *item)
{
    const QPointF middle(item->width() / 2, item->height() / 2);
    const QPointF moved = middle + QPointF(8, -8);
    sendMouse(item, QEvent::MouseButtonPress, middle, Qt::LeftButton);
    sendMouse(item, QEvent::MouseMove, moved, Qt::LeftButton);
    sendMouse(item, QEvent::MouseButtonRelease, moved, Qt::NoButton);
}

// Takes the next choice.
void choose(QQuickItem *item)
{
    if (has(item, "chosen(int)")) {
        const int count =
            item->property("names").value<QJSValue>().property(QStringLiteral("length")).toInt();
        const int next = (item->property("current").toInt() + 1) % qMax(count, 1);
        QMetaObject::invokeMethod(item, "chosen", Q_ARG(int, next));
    }
    if (has(item, "moved(int)"))
        QMetaObject::invokeMethod(item, "moved", Q_ARG(int, 1));
}

void operate(QQuickItem *item)
{
    QObject *parameter = ShellScreen::objectOf(item, "parameter");
    if (has(parameter, "set(QVariant)")) {
        const QVariant lowest = parameter->property("from");
        const bool isLowest = parameter->property("value") == lowest;
        QMetaObject::invokeMethod(parameter, "set",
                                  Q_ARG(QVariant, isLowest ? parameter->property("to") : lowest));
    }
    QObject *compressor = ShellScreen::objectOf(item, "compressor");
    if (has(compressor, "requestLevels()"))
        QMetaObject::invokeMethod(compressor, "requestLevels");
    if (item->inherits("QQuickMouseArea") || item->inherits("QQuickAbstractButton"))
        touch(item);
    // Includes buttons that must be held.
    if (has(item, "confirmed()"))
        QMetaObject::invokeMethod(item, "confirmed");
}

// The QML and JavaScript sources below a folder, without comments.
QString sourcesIn(const QString &folder)
{
    static const QRegularExpression comment(QStringLiteral("(?<!:)//[^\n]*"));
    QString all;
    QDirIterator files(folder, {QStringLiteral("*.qml"), QStringLiteral("*.js")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            all += QString::fromUtf8(file.readAll()).remove(comment);
    }
    return all;
}

// The literals of the screen's sources that are the name of a method or a prefix of several names.
QSet<QString> literals()
{
    static const QRegularExpression expression(
        QStringLiteral("\"((?:set|send|request|delete|deep|parse|backup|check)[A-Z]\\w*)\""));
    QSet<QString> found;
    for (auto matches = expression.globalMatch(sourcesIn(QStringLiteral(":/screen"))); matches.hasNext();)
        found.insert(matches.next().captured(1));
    return found;
}

// Emits a signal with an empty value of each argument.
bool emitSignal(QObject *object, const QMetaMethod &signal)
{
    QVector<QVariant> values;
    QVector<QGenericArgument> arguments(10);
    for (int i = 0; i < signal.parameterCount(); ++i)
        values.append(QVariant(signal.parameterType(i), nullptr));
    for (int i = 0; i < values.size(); ++i)
        arguments[i] = QGenericArgument(values.at(i).typeName(), values.at(i).constData());
    return signal.invoke(object, Qt::DirectConnection, arguments.at(0), arguments.at(1), arguments.at(2));
}

} // namespace

class MethodsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPage_data();
    void everyPage();
    void everyLiteralIsCalled();
    void everyMethodIsCalled();
    void everyPropertyIsRead();
    void everySignalIsShown_data();
    void everySignalIsShown();
    void everyLevelIsShown_data();
    void everyLevelIsShown();
    void exceptionsExist();

public Q_SLOTS:
    void noteCall(const QString &method, int argumentCount);

private:
    EnginePeer m_peer;
    ShellScreen m_screen;
    const QMetaObject *m_type = nullptr;
    int m_calls = 0;
    QSet<QString> m_called;
    QStringList m_unknown;
};

void MethodsTest::initTestCase()
{
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
    const QString problem = m_screen.load(QSize(1280, 800));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    m_type = m_screen.module()->metaObject();
    QVERIFY(connect(m_screen.device(), SIGNAL(called(QString, int)), this, SLOT(noteCall(QString, int))));
}

void MethodsTest::noteCall(const QString &method, int argumentCount)
{
    ++m_calls;
    m_called.insert(method);
    for (int i = m_type->methodOffset(); i < m_type->methodCount(); ++i) {
        const QMetaMethod candidate = m_type->method(i);
        if (candidate.methodType() == QMetaMethod::Method && candidate.name() == method.toLatin1() &&
            candidate.parameterCount() == argumentCount)
            return;
    }
    m_unknown.append(QStringLiteral("%1 with %2 argument(s)").arg(method).arg(argumentCount));
}

void MethodsTest::everyPage_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < pages().size(); ++i)
        QTest::newRow(qPrintable(pages().at(i).name)) << i;
}

void MethodsTest::everyPage()
{
    QFETCH(const int, index);
    const LogCatcher log;
    m_unknown.clear();
    const int calls = m_calls;
    QQuickItem *loader = m_screen.open(pages().at(index).name);
    QVERIFY(loader);
    QVERIFY2(ShellScreen::objectOf(loader, "item"), "the page cannot be loaded");
    QVERIFY(loader->isVisible());

    QObject *transfer =
        ShellScreen::objectOf(ShellScreen::objectOf(m_screen.shell(), "transfers"), "transfer");
    QVERIFY(transfer);
    if (QQuickItem *path = ShellScreen::itemNamed(loader, QStringLiteral("path")))
        path->setProperty("text", QStringLiteral("/no/such/file"));
    for (int pass = 0; pass < passes; ++pass) {
        Items items;
        collect(loader, items);
        for (const QPointer<QQuickItem> &item : qAsConst(items)) {
            if (item && item->isVisible())
                operate(item);
        }
        // The next pass sends a file of another kind.
        QMetaObject::invokeMethod(transfer, "cancel");
        // A choice may replace the items of the page.
        for (const QPointer<QQuickItem> &item : qAsConst(items)) {
            if (item && item->isVisible() && isChoice(item))
                choose(item);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QVERIFY(m_calls > calls);
    QCOMPARE(m_unknown, QStringList());
    QCOMPARE(log.warnings().join(QLatin1Char('\n')), QString());
}

// Finds methods whose control is on no page, or cannot be operated by the functions above.
void MethodsTest::everyLiteralIsCalled()
{
    QStringList missing;
    const QSet<QString> all = literals();
    QVERIFY(!all.isEmpty());
    for (const QString &literal : all) {
        const auto begins = [&literal](const QString &method) {
            return method.startsWith(literal);
        };
        if (std::none_of(m_called.begin(), m_called.end(), begins))
            missing += literal;
    }
    QCOMPARE(missing.join(QLatin1Char('\n')), QString());
}

void MethodsTest::everyMethodIsCalled()
{
    QStringList missing;
    int count = 0;
    for (int i = m_type->methodOffset(); i < m_type->methodCount(); ++i) {
        const QMetaMethod method = m_type->method(i);
        if (method.methodType() != QMetaMethod::Method)
            continue;
        ++count;
        const QString name = QString::fromLatin1(method.name());
        if (!m_called.contains(name) && !exceptions().contains(name))
            missing += name;
    }
    QVERIFY(count > 200);
    QCOMPARE(missing.join(QLatin1Char('\n')), QString());
}

// A binding or a handler reads the property of the module by its full name.
void MethodsTest::everyPropertyIsRead()
{
    const QString sources = sourcesIn(QStringLiteral(":/screen")) + sourcesIn(testsupport::qmlDir());
    QStringList missing;
    for (int i = m_type->propertyOffset(); i < m_type->propertyCount(); ++i) {
        const QString name = QString::fromLatin1(m_type->property(i).name());
        const QRegularExpression reading(QStringLiteral("\\b(?:module|zelta|engine|m)\\.%1\\b").arg(name));
        if (!sources.contains(reading) && !exceptions().contains(name))
            missing += name;
    }
    QVERIFY(m_type->propertyCount() - m_type->propertyOffset() > 50);
    QCOMPARE(missing.join(QLatin1Char('\n')), QString());
}

void MethodsTest::everySignalIsShown_data()
{
    QTest::addColumn<int>("index");
    for (int i = m_type->methodOffset(); i < m_type->methodCount(); ++i) {
        const QMetaMethod method = m_type->method(i);
        if (method.methodType() == QMetaMethod::Signal &&
            !exceptions().contains(QString::fromLatin1(method.name())))
            QTest::newRow(method.name().constData()) << i;
    }
}

// The page for service lists each event, or counts it among the reports of levels.
void MethodsTest::everySignalIsShown()
{
    QFETCH(const int, index);
    const QObject *log = ShellScreen::objectOf(m_screen.device(), "log");
    QVERIFY(log);
    const auto shown = [log] {
        return log->property("count").toInt() + log->property("levelReports").toInt() +
               log->property("compressorReports").toInt();
    };
    const int before = shown();
    QVERIFY(emitSignal(m_screen.module(), m_type->method(index)));
    QCOMPARE(shown(), before + 1);
}

void MethodsTest::everyLevelIsShown_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("section");
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<int>("levels");

    const QString compressor = QStringLiteral("compressor");
    QTest::newRow("outputs") << QStringLiteral("kit") << 0
                             << QByteArray::fromHex("4452000100020003000400050006000700080009000a"
                                                    "000b000c000d000e000f001000110012")
                             << 18;
    QTest::newRow("master compressor")
        << compressor << 0 << QByteArray::fromHex("43520000000100020003000400050006") << 6;
    QTest::newRow("monitor compressor")
        << compressor << 1 << QByteArray::fromHex("43520001000100020003000400050006") << 6;
    QTest::newRow("headphone compressor")
        << compressor << 2 << QByteArray::fromHex("43520002000100020003000400050006") << 6;
    QTest::newRow("pad compressor") << compressor << 3
                                    << QByteArray::fromHex("43520026000100020003000400050006") << 6;
}

// The levels 1, 2, 3... of a report stand in the meters of the page from left to right; 70 is full scale.
void MethodsTest::everyLevelIsShown()
{
    QFETCH(const QString, page);
    QFETCH(const int, section);
    QFETCH(const QByteArray, datagram);
    QFETCH(const int, levels);
    QQuickItem *loader = m_screen.open(page);
    QVERIFY(loader);
    if (QQuickItem *tabs = ShellScreen::itemNamed(loader, QStringLiteral("sections")))
        QMetaObject::invokeMethod(tabs, "chosen", Q_ARG(int, section));
    QVERIFY(m_peer.connectTo(m_screen.module()));
    QVERIFY(m_peer.send(datagram));
    QVERIFY(m_peer.settle(m_screen.module()));
    QVERIFY(m_screen.drawn());

    QVector<QPair<qreal, qreal>> shown;
    Items items;
    collect(loader, items);
    for (const QPointer<QQuickItem> &item : qAsConst(items)) {
        if (item->isVisible() && item->property("level").isValid() && item->property("falling").isValid())
            shown.append({item->mapToItem(loader, QPointF()).x(), item->property("level").toReal() * 70});
    }
    std::sort(shown.begin(), shown.end());
    QCOMPARE(shown.size(), levels);
    for (int i = 0; i < levels; ++i)
        QCOMPARE(qRound(shown.at(i).second * 1000), (i + 1) * 1000);
}

// A name in the list of exceptions that is no member would hide a mistake.
void MethodsTest::exceptionsExist()
{
    QSet<QString> members;
    for (int i = m_type->methodOffset(); i < m_type->methodCount(); ++i)
        members.insert(QString::fromLatin1(m_type->method(i).name()));
    const auto &excepted = exceptions();
    for (auto exception = excepted.cbegin(); exception != excepted.cend(); ++exception)
        QVERIFY2(members.contains(exception.key()), qPrintable(exception.key()));
}

QTEST_MAIN(MethodsTest)
#include "tst_methods.moc"
