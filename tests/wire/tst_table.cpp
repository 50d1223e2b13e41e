#include "support/datagram.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "wire/module.h"
#include "wire/wirerow.h"

#include <QGuiApplication>
#include <QHash>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <vector>

using namespace testsupport;
using namespace zelta::wire;

namespace {

// The transfer thread sends the datagrams of these methods, or they send no datagram. tests/transfer checks
// them.
const char *const methodsWithoutRows[] = {
    "sendZeltaFirmware",
    "sendTriggerFirmware",
    "sendSoundBank",
    "sendTriggerBank",
    "requestSoundBankVersion",
    "requestTriggerBankVersion",
    "requestHHRawValue",
    "parseJsonFile",
    "parseSoundBankList",
    "parseTriggerBankList",
    "backupSoundBankList",
    "backupTriggerBankList",
    "sendImportSoundBank",
    "sendImportWaveSample",
    "sendBtFw",
    "checkBtFw",
};

constexpr int fewestRows = 3;

std::vector<WireRow> allRows()
{
    std::vector<WireRow> rows;
    for (const Table<WireRow> *table :
         {&directRows, &metronomeRows, &mixerRows, &padEqualizerRows, &outputEqualizerRows, &compressorRows,
          &padSoundRows, &effectRows, &triggerRows, &systemRows, &slotRows})
        rows.insert(rows.end(), table->begin(), table->end());
    return rows;
}

QByteArray rowName(const WireRow &row)
{
    return QByteArray(row.method) + '(' + row.arguments + ") " + row.meaning;
}

QList<QByteArray> datagramsOf(const WireRow &row)
{
    QList<QByteArray> all;
    for (int call = 0; call < row.calls; ++call)
        all += datagrams(row.datagrams);
    return all;
}

} // namespace

/// All methods that send, called through the meta-object and from QML.
class TableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void throughMetaObject_data() { rows(); }
    void throughMetaObject();
    void fromQml_data() { rows(); }
    void fromQml();
    void everySendingMethodHasRows();
    void everyRowIsNamedOnce();

private:
    void rows();
    void expectOnTheWire(const QList<QByteArray> &datagrams);

    EnginePeer m_peer;
    QScopedPointer<Module> m_module;
};

void TableTest::initTestCase()
{
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
    m_module.reset(new Module);
    QVERIFY2(m_module->object(), qPrintable(m_module->errorString()));
    QVERIFY(m_peer.connectTo(m_module->object()));
}

void TableTest::rows()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("calls");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::addColumn<QStringList>("warnings");
    for (const WireRow &row : allRows()) {
        QTest::newRow(rowName(row).constData())
            << QString::fromLatin1(row.method) << QString::fromLatin1(row.arguments) << row.calls
            << datagramsOf(row)
            << (row.warning ? QStringList{QString::fromLatin1(row.warning)} : QStringList());
    }
}

void TableTest::expectOnTheWire(const QList<QByteArray> &datagrams)
{
    for (const QByteArray &datagram : datagrams)
        QCOMPARE(m_peer.next().toHex(' '), datagram.toHex(' '));
    QVERIFY(m_peer.nothingSentBy(m_module->object()));
    QVERIFY(!m_peer.hasPending());
}

void TableTest::throughMetaObject()
{
    QFETCH(QString, method);
    QFETCH(QString, arguments);
    QFETCH(int, calls);
    QFETCH(QList<QByteArray>, datagrams);
    QFETCH(QStringList, warnings);
    m_peer.discardPending();
    const LogCatcher log;
    for (int call = 0; call < calls; ++call)
        QCOMPARE(m_module->callByName(method, arguments), QString());
    QCOMPARE(log.warnings(), warnings);
    expectOnTheWire(datagrams);
}

void TableTest::fromQml()
{
    QFETCH(QString, method);
    QFETCH(QString, arguments);
    QFETCH(int, calls);
    QFETCH(QList<QByteArray>, datagrams);
    QFETCH(QStringList, warnings);
    m_peer.discardPending();
    const LogCatcher log;
    for (int call = 0; call < calls; ++call)
        QCOMPARE(m_module->callFromQml(method, arguments), QString());
    // QML logs a warning only if an argument does not fit its type.
    QCOMPARE(log.warnings(), warnings);
    expectOnTheWire(datagrams);
}

void TableTest::everySendingMethodHasRows()
{
    QHash<QByteArray, int> rowCounts;
    for (const WireRow &row : allRows())
        ++rowCounts[row.method];
    QSet<QByteArray> withoutRows;
    for (const char *method : methodsWithoutRows)
        withoutRows.insert(method);

    const QMetaObject *meta = m_module->object()->metaObject();
    QStringList missing;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Method)
            continue;
        const int count = rowCounts.take(method.name());
        if (withoutRows.contains(method.name()) ? count != 0 : count < fewestRows)
            missing += QString::fromLatin1(method.name());
    }
    QCOMPARE(missing, QStringList());
    QCOMPARE(rowCounts.keys(), QList<QByteArray>()); // rows of unknown methods
}

void TableTest::everyRowIsNamedOnce()
{
    QSet<QByteArray> names;
    QStringList twice;
    for (const WireRow &row : allRows()) {
        if (names.contains(rowName(row)))
            twice += QString::fromLatin1(rowName(row));
        names.insert(rowName(row));
        QVERIFY2(*row.meaning, row.method);
        // A tag, then bytes as hex digits.
        static const QRegularExpression form(QStringLiteral("^[A-Z]{2}( ([0-9A-F]{2}){2,})+$"));
        const QString datagrams = QString::fromLatin1(row.datagrams);
        const QStringList texts = datagrams.isEmpty() ? QStringList() : datagrams.split(QLatin1Char('|'));
        for (const QString &text : texts)
            QVERIFY2(form.match(text.trimmed()).hasMatch(), rowName(row).constData());
    }
    QCOMPARE(twice, QStringList());
}

QTEST_MAIN(TableTest)
#include "tst_table.moc"
