// The reference in docs/reference describes the module as it is: its members, the parameters that the methods
// send, and its examples.

#include "control/qconnectqmlplugin.h"
#include "docs/calledmodule.h"
#include "docs/parameterrows.h"
#include "docs/receptions.h"
#include "docs/referencetext.h"
#include "docs/screen.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace docs;
using namespace testsupport;

namespace {

const QString zeltaConnect = QStringLiteral("ZeltaConnect");

QString argumentList(const QMetaMethod &method)
{
    QStringList arguments;
    for (int i = 0; i < method.parameterCount(); ++i)
        arguments += QLatin1String(method.parameterTypes().at(i)) + QLatin1Char(' ') +
                     QLatin1String(method.parameterNames().at(i));
    return QStringLiteral("%1(%2)").arg(QLatin1String(method.name()), arguments.join(QStringLiteral(", ")));
}

// The members of the type, in the form of Topic::signature.
QStringList declaredMembers(Topic::Kind kind)
{
    QStringList members;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.propertyOffset(); kind == Topic::Property && i < meta.propertyCount(); ++i) {
        members += QLatin1String(meta.property(i).typeName()) + QLatin1Char(' ') +
                   QLatin1String(meta.property(i).name());
    }
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (kind == Topic::Signal && method.methodType() == QMetaMethod::Signal)
            members += argumentList(method);
        if (kind == Topic::Method && method.methodType() == QMetaMethod::Method)
            members += QLatin1String(method.typeName()) + QLatin1Char(' ') + argumentList(method);
    }
    members.sort();
    return members;
}

// The members of the companion module by its type information, which a test of that module compares with its
// files. Methods are without the type of their result, which is not declared.
QStringList companionMembers()
{
    static const QRegularExpression component(QStringLiteral("^    Component \\{\\n(.*?)^    \\}"),
                                              QRegularExpression::MultilineOption |
                                                  QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression member(
        QStringLiteral("(Property|Signal|Method) \\{\\s*name: \"(\\w+)\"(?:; type: "
                       "\"(\\w+)\")?(.*?)\\}(?=\\n        \\w|\\s*\\z)"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression argument(
        QStringLiteral("Parameter \\{ name: \"(\\w+)\"; type: \"(\\w+)\" \\}"));
    static const QHash<QString, QString> qmlTypes{{QStringLiteral("double"), QStringLiteral("real")},
                                                  {QStringLiteral("QVariant"), QStringLiteral("var")},
                                                  {QStringLiteral("QObject"), QStringLiteral("QtObject")},
                                                  {QStringLiteral("QConnectQmlPlugin"), zeltaConnect}};
    QFile file(QStringLiteral(ZELTACONNECT_SOURCE_DIR "/companion/plugins.qmltypes"));
    QStringList members;
    if (!file.open(QIODevice::ReadOnly))
        return members;
    const QString text = QString::fromUtf8(file.readAll());
    for (auto components = component.globalMatch(text); components.hasNext();) {
        const QString description = components.next().captured(1);
        const QString type = description.section(QLatin1Char('"'), 1, 1);
        for (auto found = member.globalMatch(description); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            const QString name = type + QStringLiteral("::") + match.captured(2);
            if (match.captured(1) == QLatin1String("Property")) {
                const bool readOnly = match.captured(4).contains(QLatin1String("isReadonly: true"));
                members +=
                    QStringLiteral("%1 %2%3").arg(qmlTypes.value(match.captured(3), match.captured(3)), name,
                                                  readOnly ? QStringLiteral(" read-only") : QString());
                continue;
            }
            QStringList arguments;
            for (auto all = argument.globalMatch(match.captured(4)); all.hasNext();) {
                const QRegularExpressionMatch one = all.next();
                arguments +=
                    qmlTypes.value(one.captured(2), one.captured(2)) + QLatin1Char(' ') + one.captured(1);
            }
            members += QStringLiteral("%1(%2)").arg(name, arguments.join(QStringLiteral(", ")));
        }
    }
    members.sort();
    return members;
}

QString rowText(const ParameterRow &row)
{
    return QStringLiteral("%1 %2(%3) %4 %5 to %6")
        .arg(row.number, row.method, row.arguments.join(QStringLiteral(", ")), row.encoding, row.lowest,
             row.highest);
}

QStringList rowTexts(const QList<ParameterRow> &rows)
{
    QStringList texts;
    for (const ParameterRow &row : rows)
        texts += rowText(row);
    texts.sort();
    return texts;
}

// What the comments of an example announce: "38/07: 64" for a parameter with the data of controller 6,
// "38/0E: 68 07" with that of controllers 38 and 6, and other hex digits for a whole datagram.
QList<QByteArray> announcedDatagrams(const QString &source)
{
    static const QRegularExpression comment(QStringLiteral("//(( [0-9A-F]{2}(/[0-9A-F]{2}:)?,?)+)(?=\\n|$)"));
    QList<QByteArray> datagrams;
    for (auto comments = comment.globalMatch(source); comments.hasNext();) {
        const QStringList parts = comments.next().captured(1).split(QLatin1Char(','));
        for (const QString &part : parts) {
            const QString number = part.section(QLatin1Char(':'), 0, -2).trimmed();
            const QByteArray data =
                QByteArray::fromHex(part.section(QLatin1Char(':'), -1).trimmed().toLatin1());
            ParameterRow row;
            row.number = number;
            datagrams += number.isEmpty() ? data : row.datagram({QString(), data.chopped(1), data.right(1)});
        }
    }
    return datagrams;
}

} // namespace

class ReferenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void members_data();
    void members();
    void membersOfTheCompanionModule();
    void everyEntryIsComplete_data();
    void everyEntryIsComplete();
    void everyMemberIsOnItsPage();
    void parametersAreThoseOfTheProtocol();
    void parameters_data();
    void parameters();
    void callsSendWhatTheySay_data();
    void callsSendWhatTheySay();
    void screensRun_data();
    void screensRun();

private:
    ParameterDocument m_parameters; ///< rows of the reference, encodings of the protocol
    ParameterDocument m_protocol;
    QList<Entry> m_entries;
    QList<Reception> m_receptions;
    CalledModule m_module;
};

void ReferenceTest::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    m_entries = readReference();
    QVERIFY(!m_entries.isEmpty());
    const Markdown wire = readMarkdown(QStringLiteral("docs/wire.md"));
    m_protocol = readParameters(wire);
    QVERIFY(!m_protocol.rows.isEmpty());
    m_receptions = receptions(wire);
    QVERIFY(!m_receptions.isEmpty());
    m_parameters.encodings = m_protocol.encodings;
    for (const Entry &entry : qAsConst(m_entries))
        m_parameters.rows += entry.parameters;
    QVERIFY2(m_module.start(), qPrintable(m_module.errorString()));
}

void ReferenceTest::members_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("properties") << int(Topic::Property);
    QTest::newRow("signals") << int(Topic::Signal);
    QTest::newRow("methods") << int(Topic::Method);
}

// Each member is documented once, with the names and types of its arguments, and nothing else is.
void ReferenceTest::members()
{
    QFETCH(int, kind);
    QStringList documented;
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const Topic &topic : entry.topics) {
            if (topic.kind == kind && topic.type == zeltaConnect)
                documented += topic.signature;
        }
    }
    documented.sort();
    QCOMPARE(documented, declaredMembers(Topic::Kind(kind)));
}

void ReferenceTest::membersOfTheCompanionModule()
{
    const QStringList expected = companionMembers();
    QVERIFY(!expected.isEmpty());
    QStringList documented;
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const Topic &topic : entry.topics) {
            const QString name = topic.type + QStringLiteral("::") + topic.name;
            if (topic.type == zeltaConnect)
                continue;
            if (topic.kind == Topic::Property) {
                documented +=
                    topic.signature.section(QLatin1Char(' '), 0, 0) + QLatin1Char(' ') + name +
                    (entry.has(QStringLiteral("readonly")) ? QStringLiteral(" read-only") : QString());
            } else {
                documented += name + QLatin1Char('(') + topic.signature.section(QLatin1Char('('), 1);
            }
        }
    }
    documented.sort();
    QCOMPARE(documented, expected);
}

void ReferenceTest::everyEntryIsComplete_data()
{
    QTest::addColumn<Entry>("entry");
    for (const Entry &entry : qAsConst(m_entries)) {
        if (!entry.topics.isEmpty())
            QTest::newRow(qPrintable(entry.place + QLatin1Char(' ') + entry.topics.first().name)) << entry;
    }
}

void ReferenceTest::everyEntryIsComplete()
{
    QFETCH(Entry, entry);
    QVERIFY(entry.has(QStringLiteral("since")));
    if (entry.topics.first().type == zeltaConnect)
        QCOMPARE(entry.has(QStringLiteral("readonly")), entry.topics.first().kind == Topic::Property);
    // The examples use each member. The types of the companion module have one example each.
    QString examples;
    for (const Entry &other : qAsConst(m_entries)) {
        const bool isOfTheType =
            entry.topics.first().type != zeltaConnect && other.describesType(entry.topics.first().type);
        for (const Block &example : other.examples) {
            if (other.place == entry.place || isOfTheType)
                examples += example.lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
        }
    }
    for (const Topic &topic : qAsConst(entry.topics)) {
        QString name = topic.name;
        if (topic.kind == Topic::Signal)
            name = QStringLiteral("on") + name.at(0).toUpper() + name.mid(1);
        QVERIFY2(examples.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(name))),
                 qPrintable(topic.name));
    }
    for (const Topic &topic : qAsConst(entry.topics)) {
        const QStringList arguments = topic.argumentNames();
        for (const QString &argument : arguments) {
            QVERIFY2(
                entry.text.contains(QRegularExpression(QStringLiteral("\\\\[ac] \\{?%1\\b").arg(argument))),
                qPrintable(topic.signature));
        }
    }
}

// The page of each file lists the members that the file documents.
void ReferenceTest::everyMemberIsOnItsPage()
{
    QHash<QString, QString> pages;
    for (const Entry &entry : qAsConst(m_entries)) {
        if (entry.has(QStringLiteral("page")))
            pages[entry.file] += entry.text;
    }
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const Topic &topic : entry.topics) {
            QVERIFY2(topic.type != zeltaConnect ||
                         pages.value(entry.file).contains(QStringLiteral("\\member{%1}").arg(topic.name)),
                     qPrintable(topic.name));
        }
    }
}

// Number, encoding and range of each parameter, and no parameter is missing. docs.wire compares the protocol
// with what the methods send.
void ReferenceTest::parametersAreThoseOfTheProtocol()
{
    QCOMPARE(rowTexts(m_parameters.rows), rowTexts(m_protocol.rows));
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const ParameterRow &row : entry.parameters)
            QVERIFY2(entry.names().contains(row.method), qPrintable(entry.place));
    }
}

void ReferenceTest::parameters_data()
{
    QTest::addColumn<QString>("method");
    const QStringList methods = m_parameters.methods();
    for (const QString &method : methods)
        QTest::newRow(qPrintable(method)) << method;
}

// Each worked value of the encoding, sent to the number of the reference.
void ReferenceTest::parameters()
{
    QFETCH(QString, method);
    const QList<ParameterRow> rows = m_parameters.rowsOf(method);
    const int valueCount = m_parameters.encodings.value(rows.first().encoding).size();
    QVERIFY(valueCount > 0);
    for (int i = 0; i < valueCount; ++i) {
        QString call;
        QList<QByteArray> datagrams;
        for (const ParameterRow &row : rows) {
            const WorkedValue value = m_parameters.encodings.value(row.encoding).value(i);
            call = row.call(value.value);
            datagrams += row.datagram(value);
        }
        QCOMPARE(inHex(m_module.sentAtOnceBy(call)), inHex(datagrams));
    }
}

void ReferenceTest::callsSendWhatTheySay_data()
{
    QTest::addColumn<QString>("source");
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const Block &example : entry.examples) {
            if (example.language == QLatin1String("js")) {
                QTest::addRow("%s:%d: %s", qPrintable(entry.file), example.line,
                              qPrintable(example.lines.first()))
                    << example.lines.join(QLatin1Char('\n'));
            }
        }
    }
}

// Calls of "engine", with the datagrams in comments.
void ReferenceTest::callsSendWhatTheySay()
{
    QFETCH(QString, source);
    LogCatcher log;
    const Screen screen(QStringLiteral("import QtQuick 2.12\nimport ZeltaConnect 1.0\n"
                                       "Item { ZeltaConnect { id: engine }\nfunction run() {\n%1\n} }")
                            .arg(source));
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    EnginePeer &peer = m_module.peer();
    QVERIFY(peer.connectTo(screen.module()));
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "run"));
    const QList<QByteArray> announced = announcedDatagrams(source);
    for (const QByteArray &datagram : announced)
        QCOMPARE(peer.next().toHex(' '), datagram.toHex(' '));
    QVERIFY(peer.nothingSentBy(screen.module()));
    QCOMPARE(log.warnings(), QStringList());
}

void ReferenceTest::screensRun_data()
{
    QTest::addColumn<QString>("source");
    for (const Entry &entry : qAsConst(m_entries)) {
        for (const Block &example : entry.examples) {
            if (example.language == QLatin1String("qml"))
                QTest::addRow("%s:%d", qPrintable(entry.file), example.line)
                    << example.lines.join(QLatin1Char('\n'));
        }
    }
}

// Each screen runs while all events of the protocol document arrive, without an error of its bindings and
// handlers.
void ReferenceTest::screensRun()
{
    QFETCH(QString, source);
    LogCatcher log;
    // Requests of the previous screen.
    EnginePeer &peer = m_module.peer();
    peer.discardPending();
    const Screen screen(source);
    QVERIFY2(screen.module(), qPrintable(screen.errorString()));
    // The peer may receive other requests of the screen first; all have the same sender.
    QVERIFY(QMetaObject::invokeMethod(screen.module(), "requestOutsUpdate"));
    QVERIFY(!peer.next().isNull());
    for (const Reception &reception : qAsConst(m_receptions)) {
        for (const QByteArray &datagram : reception.datagrams)
            QVERIFY(peer.send(datagram));
    }
    QVERIFY(peer.settle(screen.module()));
    QCOMPARE(log.warnings(), QStringList());
}

QTEST_MAIN(ReferenceTest)
#include "tst_reference.moc"
