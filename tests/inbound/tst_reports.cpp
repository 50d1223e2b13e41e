#include "inbound/inboundrow.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/texts.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QTest>
#include <QThread>

#include <algorithm>

using namespace testsupport;
using namespace zelta::inbound;

namespace {

QStringList parts(const char *text)
{
    QStringList result;
    const QList<QByteArray> pieces = QByteArray(text).split('|');
    for (const QByteArray &part : pieces) {
        if (!part.trimmed().isEmpty())
            result += QString::fromUtf8(part.trimmed());
    }
    return result;
}

// Pad events are packed numbers, which are readable only in hex.
QString valueText(const char *name, const QVariant &value)
{
    const QByteArray property(name);
    if (property == "note" || property == "afterTouchNote")
        return QStringLiteral("0x%1").arg(QString::number(value.toUInt(), 16).toUpper(), 8, QLatin1Char('0'));
    if (property == "position")
        return QStringLiteral("0x%1").arg(QString::number(value.toUInt(), 16).toUpper(), 4, QLatin1Char('0'));
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 12);
    return value.toString();
}

QString propertyText(const QObject &module, const QMetaProperty &property)
{
    return QLatin1String(property.name()) + QLatin1Char('=') +
           valueText(property.name(), property.read(&module));
}

// "property=value" for every property.
QStringList propertyTexts(const QObject &module)
{
    QStringList result;
    const QMetaObject *meta = module.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        result += propertyText(module, meta->property(i));
    return result;
}

QStringList changes(const QStringList &before, const QStringList &after)
{
    QStringList result;
    for (const QString &text : after) {
        if (!before.contains(text))
            result += text;
    }
    return result;
}

bool isHandOver(const QString &signalText)
{
    return signalText.startsWith(QLatin1String("notePacketArrived(")) ||
           signalText.startsWith(QLatin1String("potPacketArrived("));
}

// Each MIDI and pot event is forwarded to the controllers once.
int handOversDue(const QList<QByteArray> &datagrams)
{
    int count = 0;
    for (const QByteArray &datagram : datagrams)
        count += datagram.startsWith("IMAC") || datagram.startsWith("COAC") ? 1 : 0;
    return count;
}

/// Reads each property of an object whenever its signal is emitted.
class NotifiedValues : public QObject
{
    Q_OBJECT

public:
    explicit NotifiedValues(const QObject *object)
    {
        const int slot = metaObject()->indexOfSlot("read()");
        const QMetaObject *meta = object->metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
            QMetaObject::connect(object, meta->property(i).notifySignalIndex(), this, slot,
                                 Qt::UniqueConnection);
    }

    /// "property=value" for each value that was read.
    QStringList texts() const { return m_texts; }

private Q_SLOTS:
    void read()
    {
        const QMetaObject *meta = sender()->metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            if (meta->property(i).notifySignalIndex() == senderSignalIndex())
                m_texts += propertyText(*sender(), meta->property(i));
        }
    }

private:
    QStringList m_texts;
};

} // namespace

/// Reports of the engine, from the socket to the property and the signal. Nothing else may change.
class ReportsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateAtTheStart();
    void report_data();
    void report();
    void handOver_data();
    void handOver();
    void tempoIsLogged_data();
    void tempoIsLogged();
    void onlyTempoIsLogged();
    void signalsAreEmittedInTheGuiThread();
    void totalFlashSizeIsReportedFirst();
};

void ReportsTest::stateAtTheStart()
{
    const QConnectQmlPlugin module;
    QStringList unexpected;
    const QStringList state = propertyTexts(module);
    for (const QString &text : state) {
        if (!text.endsWith(QLatin1String("=0")) && !text.endsWith(QLatin1String("=false")))
            unexpected += text;
    }
    QCOMPARE(unexpected, texts({"note=0x00000000", "afterTouchNote=0x00000000", "position=0x0000",
                                "zeltaFwVersion=V 0.00", "triggerFwVersion=V 0", "soundBankVersion=V 0.00",
                                "triggerBankVersion=V 0"}));
}

void ReportsTest::report_data()
{
    QTest::addColumn<QList<QByteArray>>("earlier");
    QTest::addColumn<QList<QByteArray>>("sent");
    QTest::addColumn<QStringList>("expectedSignals");
    QTest::addColumn<QStringList>("changed");
    for (const Table<InboundRow> *rows : {&eventRows, &switchRows, &padRows, &meterRows, &messageRows}) {
        for (const InboundRow &row : *rows)
            QTest::newRow(row.name) << datagrams(row.earlier) << datagrams(row.sent)
                                    << parts(row.expectedSignals) << parts(row.changed);
    }
}

void ReportsTest::report()
{
    QFETCH(QList<QByteArray>, earlier);
    QFETCH(QList<QByteArray>, sent);
    QFETCH(QStringList, expectedSignals);
    QFETCH(QStringList, changed);

    ConnectedModule connected;
    QVERIFY(connected.connected);
    QVERIFY(connected.deliver(earlier));
    connected.recorder.clear();
    const QStringList before = propertyTexts(connected.module);
    const NotifiedValues notified(&connected.module);

    QVERIFY(connected.deliver(sent));
    QStringList signalTexts = connected.recorder.texts();
    const int all = signalTexts.size();
    signalTexts.erase(std::remove_if(signalTexts.begin(), signalTexts.end(), isHandOver), signalTexts.end());
    QCOMPARE(signalTexts, expectedSignals);
    QCOMPARE(all - signalTexts.size(), handOversDue(sent));
    QCOMPARE(changes(before, propertyTexts(connected.module)), changed);
    // Each property has its value before its signal is emitted.
    QCOMPARE(changes(notified.texts(), changed), QStringList());
    // The module never answers a report.
    QVERIFY(connected.peer.nothingSentBy(&connected.module));
}

void ReportsTest::handOver_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QStringList>("expectedSignals");
    QTest::newRow("position") << datagram("IM AC B90B 2A10")
                              << texts({"positionChanged()", "notePacketArrived(18765, 47371, 10768)"});
    QTest::newRow("program") << datagram("IM AC C90C 0005")
                             << texts({"programChanged(5)", "notePacketArrived(18765, 51468, 5)"});
    QTest::newRow("unknown MIDI event")
        << datagram("IM AC FFFF FFFE") << texts({"notePacketArrived(18765, 65535, 65534)"});
    QTest::newRow("pot") << datagram("CO AC 0002 0001")
                         << texts({"triggerPot2Inc()", "potPacketArrived(17231, 2, 1)"});
    QTest::newRow("unknown pot") << datagram("CO AC 0102 0304")
                                 << texts({"potPacketArrived(17231, 258, 772)"});
}

// A controller handles an event before handlers of the event itself are called.
void ReportsTest::handOver()
{
    QFETCH(QByteArray, sent);
    QFETCH(QStringList, expectedSignals);
    ConnectedModule connected;
    QVERIFY(connected.deliver({sent}));
    QCOMPARE(connected.recorder.texts(), expectedSignals);
}

void ReportsTest::tempoIsLogged_data()
{
    QTest::addColumn<QList<QByteArray>>("sent");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("tempo") << datagrams("TM AC 0078 0000") << texts({"updateTempo 120"});
    QTest::newRow("tempo 0") << datagrams("TM AC 0000 0000") << texts({"updateTempo 0"});
    QTest::newRow("highest") << datagrams("TM AC FFFF 0000") << texts({"updateTempo 65535"});
    QTest::newRow("same tempo again")
        << datagrams("TM AC 0078 0000 | TM AC 0078 0000") << texts({"updateTempo 120", "updateTempo 120"});
}

void ReportsTest::tempoIsLogged()
{
    QFETCH(QList<QByteArray>, sent);
    QFETCH(QStringList, lines);
    LogCatcher log;
    ConnectedModule connected;
    QVERIFY(connected.deliver(sent));
    QCOMPARE(log.debugTexts(), lines);
    QCOMPARE(log.warnings(), QStringList());
}

void ReportsTest::onlyTempoIsLogged()
{
    LogCatcher log;
    ConnectedModule connected;
    QVERIFY(connected.deliver(datagrams(
        "SW AC PW 0001 | SW AC 4135 0001 | BT AC 0000 0000 | IM AC 9909 643C | "
        "CO AC 0004 0001 | FR AC 0001 0002 | CR 0007 0046 0046 0046 0046 0046 0046 | "
        "DR 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC | "
        "AB AC 0001 0002")));
    QCOMPARE(log.debugTexts(), QStringList());
    QCOMPARE(log.warnings(), QStringList());
}

void ReportsTest::signalsAreEmittedInTheGuiThread()
{
    ConnectedModule connected;
    QList<QThread *> threads;
    const auto note = [&threads] {
        threads += QThread::currentThread();
    };
    connect(&connected.module, &QConnectQmlPlugin::powerChanged, this, note, Qt::DirectConnection);
    connect(&connected.module, &QConnectQmlPlugin::noteChanged, this, note, Qt::DirectConnection);
    connect(&connected.module, &QConnectQmlPlugin::masterCpChanged, this, note, Qt::DirectConnection);
    connect(&connected.module, &QConnectQmlPlugin::outputLevelsChanged, this, note, Qt::DirectConnection);
    connect(&connected.module, &QConnectQmlPlugin::sysEx, this, note, Qt::DirectConnection);
    QVERIFY(connected.deliver(datagrams(
        "SW AC PW 0001 | IM AC 9909 6426 | CR 0000 0046 0046 0046 0046 0046 0046 | "
        "DR 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC | "
        "IM AC 0F70 0000")));
    QCOMPARE(threads.size(), 5);
    QCOMPARE(threads.count(QThread::currentThread()), 5);
}

// In a handler of totalSampleFlashSizeChanged() the other property still has its previous value.
void ReportsTest::totalFlashSizeIsReportedFirst()
{
    ConnectedModule connected;
    QVector<uint> sizes;
    connect(&connected.module, &QConnectQmlPlugin::totalSampleFlashSizeChanged, this, [&] {
        sizes.append(connected.module.property("totalFlashSize").toUInt());
        sizes.append(connected.module.property("flashSize").toUInt());
    });
    QVERIFY(connected.deliver({datagram("FR AC 0001 0002")}));
    QCOMPARE(sizes, (QVector<uint>{131076, 0}));
    QCOMPARE(connected.module.property("flashSize").toUInt(), 262144U);
}

QTEST_MAIN(ReportsTest)
#include "tst_reports.moc"
