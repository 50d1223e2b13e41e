#include "inbound/inboundrow.h"
#include "support/connectedmodule.h"
#include "support/hex.h"
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

QList<QByteArray> datagrams(const char *text)
{
    QList<QByteArray> result;
    const QStringList pieces = parts(text);
    for (const QString &part : pieces)
        result += hex(part.toLatin1().constData());
    return result;
}

// Pad events are packed numbers, which only hex shows.
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

// "property=value" of every property.
QStringList propertyTexts(const QObject &module)
{
    QStringList result;
    const QMetaObject *meta = module.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        result += QLatin1String(property.name()) + QLatin1Char('=') +
                  valueText(property.name(), property.read(&module));
    }
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

// The hand-overs that the datagrams must cause: one for each MIDI and pot event.
int handOversDue(const QList<QByteArray> &datagrams)
{
    int count = 0;
    for (const QByteArray &datagram : datagrams)
        count += datagram.startsWith("IMAC") || datagram.startsWith("COAC") ? 1 : 0;
    return count;
}

} // namespace

/// Everything that the engine reports, from the socket to the property and the signal, and nothing else.
class InboundTest : public QObject
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
    void signalsComeInTheGuiThread();
    void propertyIsSetWhenItsSignalComes_data();
    void propertyIsSetWhenItsSignalComes();
    void totalFlashSizeComesFirst();

public Q_SLOTS:
    void readWatched() { m_seen += m_watched->property(m_watchedProperty.constData()); }

private:
    const QObject *m_watched = nullptr;
    QByteArray m_watchedProperty;
    QVariantList m_seen;
};

void InboundTest::stateAtTheStart()
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

void InboundTest::report_data()
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

void InboundTest::report()
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

    QVERIFY(connected.deliver(sent));
    QStringList signalTexts = connected.recorder.texts();
    const int all = signalTexts.size();
    signalTexts.erase(std::remove_if(signalTexts.begin(), signalTexts.end(), isHandOver), signalTexts.end());
    QCOMPARE(signalTexts, expectedSignals);
    QCOMPARE(all - signalTexts.size(), handOversDue(sent));
    QCOMPARE(changes(before, propertyTexts(connected.module)), changed);
    // A report is never answered.
    QVERIFY(connected.peer.nothingSentBy(&connected.module));
}

void InboundTest::handOver_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QString>("expectedSignal");
    QTest::newRow("strike") << hex("494D4143 9909 6426")
                            << QStringLiteral("notePacketArrived(18765, 39177, 25638)");
    QTest::newRow("unknown MIDI event")
        << hex("494D4143 FFFF FFFE") << QStringLiteral("notePacketArrived(18765, 65535, 65534)");
    QTest::newRow("pot") << hex("434F4143 0002 0001") << QStringLiteral("potPacketArrived(17231, 2, 1)");
    QTest::newRow("unknown pot") << hex("434F4143 0102 0304")
                                 << QStringLiteral("potPacketArrived(17231, 258, 772)");
}

void InboundTest::handOver()
{
    QFETCH(QByteArray, sent);
    QFETCH(QString, expectedSignal);
    ConnectedModule connected;
    QVERIFY(connected.deliver({sent}));
    QStringList handOvers;
    const QStringList signalTexts = connected.recorder.texts();
    for (const QString &text : signalTexts) {
        if (isHandOver(text))
            handOvers += text;
    }
    QCOMPARE(handOvers, QStringList{expectedSignal});
}

void InboundTest::tempoIsLogged_data()
{
    QTest::addColumn<QList<QByteArray>>("sent");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("tempo") << datagrams("544D 4143 0078 0000") << texts({"updateTempo 120"});
    QTest::newRow("tempo 0") << datagrams("544D 4143 0000 0000") << texts({"updateTempo 0"});
    QTest::newRow("highest") << datagrams("544D 4143 FFFF 0000") << texts({"updateTempo 65535"});
    QTest::newRow("same tempo again") << datagrams("544D 4143 0078 0000 | 544D 4143 0078 0000")
                                      << texts({"updateTempo 120", "updateTempo 120"});
}

void InboundTest::tempoIsLogged()
{
    QFETCH(QList<QByteArray>, sent);
    QFETCH(QStringList, lines);
    LogCatcher log;
    ConnectedModule connected;
    QVERIFY(connected.deliver(sent));
    QCOMPARE(log.debugTexts(), lines);
    QCOMPARE(log.warnings(), QStringList());
}

void InboundTest::onlyTempoIsLogged()
{
    LogCatcher log;
    ConnectedModule connected;
    QVERIFY(connected.deliver(
        datagrams("5357 4143 5057 0001 | 5357 4143 4135 0001 | 4254 4143 0000 0000 | 494D 4143 9909 643C | "
                  "434F 4143 0004 0001 | 4352 0007 0046 0046 0046 0046 0046 0046 | 4142 4143 0001 0002")));
    QCOMPARE(log.debugTexts(), QStringList());
    QCOMPARE(log.warnings(), QStringList());
}

void InboundTest::signalsComeInTheGuiThread()
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
        "5357 4143 5057 0001 | 494D 4143 9909 6426 | 4352 0000 0046 0046 0046 0046 0046 0046 | "
        "4452 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC | "
        "494D 4143 0F70 0000")));
    QCOMPARE(threads.size(), 5);
    QCOMPARE(threads.count(QThread::currentThread()), 5);
}

void InboundTest::propertyIsSetWhenItsSignalComes_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("note") << hex("494D4143 9909 6426") << QByteArray("note") << QVariant(0x12664U);
    QTest::newRow("aftertouch") << hex("494D4143 A90A 7F31") << QByteArray("afterTouchNote")
                                << QVariant(0x408317FU);
    QTest::newRow("position") << hex("494D4143 B90B 4004") << QByteArray("position") << QVariant(0x440U);
    QTest::newRow("beat") << hex("42544143 0003 0000") << QByteArray("beat") << QVariant(3U);
    QTest::newRow("tempo") << hex("544D4143 0078 0000") << QByteArray("tempo") << QVariant(120U);
    QTest::newRow("power") << hex("53574143 5057 0001") << QByteArray("powerPressed") << QVariant(true);
    QTest::newRow("home") << hex("53574143 484D 0001") << QByteArray("homeButtonPressed") << QVariant(true);
    QTest::newRow("first of a report")
        << hex("4352 0002 0046 0000 0000 0000 0000 0046") << QByteArray("headCpInL") << QVariant(1.0);
    QTest::newRow("last of a report")
        << hex("4352 0002 0046 0000 0000 0000 0000 0046") << QByteArray("headCpOutR") << QVariant(1.0);
    QTest::newRow("flash size") << hex("46524143 0001 0002") << QByteArray("flashSize") << QVariant(262144U);
    QTest::newRow("total flash size")
        << hex("46524143 0001 0002") << QByteArray("totalFlashSize") << QVariant(131076U);
}

void InboundTest::propertyIsSetWhenItsSignalComes()
{
    QFETCH(QByteArray, sent);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    ConnectedModule connected;
    const QMetaObject *meta = connected.module.metaObject();
    const QMetaMethod notify = meta->property(meta->indexOfProperty(property.constData())).notifySignal();

    m_watched = &connected.module;
    m_watchedProperty = property;
    m_seen.clear();
    // What SIGNAL() makes of a signature.
    const QByteArray signal = '2' + notify.methodSignature();
    connect(&connected.module, signal.constData(), this, SLOT(readWatched()));
    QVERIFY(connected.deliver({sent}));
    QCOMPARE(m_seen, QVariantList{value});
}

// Who hears of the total still finds the other one as it was.
void InboundTest::totalFlashSizeComesFirst()
{
    ConnectedModule connected;
    QVector<uint> sizes;
    connect(&connected.module, &QConnectQmlPlugin::totalSampleFlashSizeChanged, this, [&] {
        sizes.append(connected.module.property("totalFlashSize").toUInt());
        sizes.append(connected.module.property("flashSize").toUInt());
    });
    QVERIFY(connected.deliver({hex("46524143 0001 0002")}));
    QCOMPARE(sizes, (QVector<uint>{131076, 0}));
    QCOMPARE(connected.module.property("flashSize").toUInt(), 262144U);
}

QTEST_MAIN(InboundTest)
#include "tst_inbound.moc"
