// Compares the tables and examples of docs/wire.md with the datagrams that the methods send, and with the
// signals that the module emits.

#include "control/qconnectqmlplugin.h"
#include "docs/calledmodule.h"
#include "docs/markdown.h"
#include "docs/parameterrows.h"
#include "docs/receptions.h"
#include "support/hex.h"
#include "support/signalrecorder.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJSEngine>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace docs;
using namespace testsupport;

namespace {

const QString sentBy = QStringLiteral("sent by ");

// SignalRecorder writes numbers in decimal form.
QString withDecimalNumbers(QString text)
{
    static const QRegularExpression hexNumber(QStringLiteral("\\b0x([0-9A-Fa-f]+)\\b"));
    for (QRegularExpressionMatch match = hexNumber.match(text); match.hasMatch();
         match = hexNumber.match(text))
        text.replace(match.captured(0), QString::number(match.captured(1).toUInt(nullptr, 16)));
    return text;
}

QHash<QString, QMetaMethod> invokables()
{
    QHash<QString, QMetaMethod> methods;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Method)
            methods.insert(QString::fromLatin1(meta.method(i).name()), meta.method(i));
    }
    return methods;
}

bool isNumber(const QString &text)
{
    bool ok = false;
    text.toDouble(&ok);
    return ok;
}

bool holdsMidiData(const QList<QByteArray> &datagrams)
{
    for (const QByteArray &datagram : datagrams) {
        // After the header, the last byte of each event is its data.
        for (int i = 7; i < datagram.size(); i += 4) {
            if (quint8(datagram.at(i)) > 0x7F)
                return false;
        }
    }
    return true;
}

} // namespace

class WireTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void parameters_data();
    void parameters();
    void ranges_data();
    void ranges();
    void onlyValuesHaveRanges();
    void everyEncodingHasValuesAndUsers();
    void sentExamples_data();
    void sentExamples();
    void receivedExamples_data();
    void receivedExamples();
    void methodsThatSendNothing_data();
    void methodsThatSendNothing();
    void everyMethodIsDescribed();
    void signaturesAreRight();
    void everyPropertyIsNamed();

private:
    QStringList methodCells() const;

    Markdown m_markdown;
    ParameterDocument m_parameters;
    QTemporaryDir m_files;
    CalledModule m_module;
};

void WireTest::initTestCase()
{
    m_markdown = readMarkdown(QStringLiteral("docs/wire.md"));
    QVERIFY(!m_markdown.text.isEmpty());
    m_parameters = readParameters(m_markdown);
    QVERIFY(!m_parameters.rows.isEmpty());

    // The files that the examples send.
    QVERIFY(m_files.isValid());
    QVERIFY(QDir::setCurrent(m_files.path()));
    for (const char *name : {"bank.bin", "bank.b05"}) {
        QFile file(QString::fromLatin1(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(hex("01 02 03")), 3);
    }

    QVERIFY2(m_module.start(), qPrintable(m_module.errorString()));
}

void WireTest::parameters_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    const QStringList methods = m_parameters.methods();
    for (const QString &method : methods) {
        const QList<ParameterRow> rows = m_parameters.rowsOf(method);
        const int valueCount = m_parameters.encodings.value(rows.first().encoding).size();
        for (int i = 0; i < valueCount; ++i) {
            QString call;
            QList<QByteArray> datagrams;
            for (const ParameterRow &row : rows) {
                const WorkedValue value = m_parameters.encodings.value(row.encoding).value(i);
                call = row.call(value.value);
                datagrams += row.datagram(value);
            }
            QTest::newRow(qPrintable(call)) << call << datagrams;
        }
    }
}

void WireTest::parameters()
{
    QFETCH(QString, call);
    QFETCH(QList<QByteArray>, datagrams);
    QCOMPARE(inHex(m_module.sentAtOnceBy(call)), inHex(datagrams));
}

void WireTest::ranges_data()
{
    QTest::addColumn<ParameterRow>("row");
    for (const ParameterRow &row : qAsConst(m_parameters.rows)) {
        // The caller of a scaled parameter gives its range.
        if (row.valueCount() > 0 && !row.arguments.contains(row.lowest))
            QTest::newRow(qPrintable(row.number + QLatin1Char(' ') + row.method)) << row;
    }
}

void WireTest::ranges()
{
    QFETCH(ParameterRow, row);
    const auto sentForAll = [&](const QString &value) {
        QStringList values;
        for (int i = 0; i < row.valueCount(); ++i)
            values += value;
        return m_module.sentAtOnceBy(row.call(values.join(QStringLiteral(", "))));
    };
    const QList<QByteArray> lowest = sentForAll(row.lowest);
    const QList<QByteArray> highest = sentForAll(row.highest);
    QVERIFY(lowest != highest);
    QVERIFY(holdsMidiData(lowest));
    QVERIFY(holdsMidiData(highest));
    if (!isNumber(row.lowest))
        return;
    for (const double beyond : {row.lowest.toDouble() - 1, row.highest.toDouble() + 1}) {
        const QList<QByteArray> sent = sentForAll(QString::number(beyond));
        QVERIFY2(sent == lowest || sent == highest || !holdsMidiData(sent),
                 qPrintable(QString::number(beyond)));
    }
}

void WireTest::onlyValuesHaveRanges()
{
    for (const ParameterRow &row : qAsConst(m_parameters.rows))
        QVERIFY2(row.lowest.isEmpty() == (row.valueCount() == 0), qPrintable(row.number));
}

void WireTest::everyEncodingHasValuesAndUsers()
{
    QStringList used;
    for (const ParameterRow &row : qAsConst(m_parameters.rows)) {
        if (!used.contains(row.encoding))
            used += row.encoding;
    }
    QStringList described = m_parameters.encodings.keys();
    used.sort();
    described.sort();
    QCOMPARE(described, used);
}

void WireTest::sentExamples_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    const QList<Block> blocks = m_markdown.blocksInLanguage(QStringLiteral("text"));
    for (const Block &block : blocks) {
        if (!block.lines.value(0).startsWith(sentBy))
            continue;
        const QString call = block.lines.first().mid(sentBy.size());
        QTest::newRow(qPrintable(call)) << call << annotatedDatagrams(block.lines.mid(1));
    }
}

void WireTest::sentExamples()
{
    QFETCH(QString, call);
    QFETCH(QList<QByteArray>, datagrams);
    QVERIFY(!datagrams.isEmpty());
    // A new module for each example: the previous one may still wait for the answer to a file.
    QVERIFY2(m_module.start(), qPrintable(m_module.errorString()));
    QCOMPARE(m_module.evaluate(call), QString());
    for (const QByteArray &datagram : datagrams)
        QCOMPARE(m_module.peer().next().toHex(' '), datagram.toHex(' '));
    QVERIFY(m_module.peer().nothingSentBy(m_module.object()));
}

void WireTest::receivedExamples_data()
{
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QStringList>("properties");
    const QList<Reception> examples = receptions(m_markdown);
    for (const Reception &example : examples)
        QTest::newRow(qPrintable(example.name)) << example.datagrams << example.signal << example.properties;
}

void WireTest::receivedExamples()
{
    QFETCH(QList<QByteArray>, datagrams);
    QFETCH(QString, signal);
    QFETCH(QStringList, properties);
    QConnectQmlPlugin module;
    EnginePeer &peer = m_module.peer();
    QVERIFY(peer.connectTo(&module));
    const SignalRecorder recorder(&module);
    for (const QByteArray &datagram : datagrams)
        QVERIFY(peer.send(datagram));
    QVERIFY(peer.settle(&module));

    const QStringList emitted = recorder.texts();
    QVERIFY2(emitted.contains(withDecimalNumbers(signal)), qPrintable(emitted.join(QStringLiteral(", "))));
    QJSEngine javaScript;
    for (const QString &property : properties) {
        const QByteArray name = property.section(QStringLiteral(" = "), 0, 0).toLatin1();
        const QString value = property.section(QStringLiteral(" = "), 1);
        QVERIFY2(module.property(name.constData()).isValid(), name.constData());
        QCOMPARE(module.property(name.constData()).toString(), javaScript.evaluate(value).toString());
    }
}

void WireTest::methodsThatSendNothing_data()
{
    QTest::addColumn<QString>("call");
    const QList<Table> tables =
        m_markdown.tablesWithColumns({QStringLiteral("Method"), QStringLiteral("What it does")});
    QCOMPARE(tables.size(), 1);
    for (const QStringList &row : tables.first().rows) {
        QString method;
        QStringList arguments;
        QVERIFY2(splitSignature(withoutBackticks(row.value(0)), method, arguments), qPrintable(row.value(0)));
        for (QString &argument : arguments) {
            argument = argument == QLatin1String("fileName")    ? QStringLiteral("'missing'")
                       : argument == QLatin1String("fileNames") ? QStringLiteral("['missing']")
                                                                : QStringLiteral("5");
        }
        QTest::newRow(qPrintable(method))
            << QStringLiteral("%1(%2)").arg(method, arguments.join(QStringLiteral(", ")));
    }
}

void WireTest::methodsThatSendNothing()
{
    QFETCH(QString, call);
    QCOMPARE(inHex(m_module.sentAtOnceBy(call)), QStringList());
}

// Cells that hold a signature, in the columns of that name.
QStringList WireTest::methodCells() const
{
    QStringList cells;
    for (const Table &table : m_markdown.tables) {
        const int column = table.columns.indexOf(QStringLiteral("Method"));
        for (const QStringList &row : table.rows) {
            const QString cell = withoutBackticks(row.value(column));
            if (column >= 0 && cell.contains(QLatin1Char('(')))
                cells += cell;
        }
    }
    return cells;
}

void WireTest::everyMethodIsDescribed()
{
    QSet<QString> described;
    QString method;
    QStringList arguments;
    const QStringList cells = methodCells();
    for (const QString &cell : cells) {
        if (splitSignature(cell, method, arguments))
            described.insert(method);
    }
    QStringList missing;
    const QStringList methods = invokables().keys();
    for (const QString &name : methods) {
        if (!described.contains(name))
            missing += name;
    }
    QCOMPARE(missing, QStringList());
}

void WireTest::signaturesAreRight()
{
    const QHash<QString, QMetaMethod> methods = invokables();
    const QStringList cells = methodCells();
    for (const QString &cell : cells) {
        QString method;
        QStringList arguments;
        QVERIFY2(splitSignature(cell, method, arguments), qPrintable(cell));
        QVERIFY2(methods.contains(method), qPrintable(method));
        QStringList names;
        const QList<QByteArray> declared = methods.value(method).parameterNames();
        for (const QByteArray &name : declared)
            names += QString::fromLatin1(name);
        QCOMPARE(arguments, names);
    }
}

void WireTest::everyPropertyIsNamed()
{
    QStringList missing;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QString name = QString::fromLatin1(meta.property(i).name());
        if (!m_markdown.text.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(name))))
            missing += name;
    }
    QCOMPARE(missing, QStringList());
}

QTEST_MAIN(WireTest)
#include "tst_wire.moc"
