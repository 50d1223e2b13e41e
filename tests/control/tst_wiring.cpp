// Every way into the control object, from the wire to the property and the signal that QML sees. Transfers
// have tests of their own.

#include "support/connectedmodule.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/texts.h"

#include <QMetaProperty>
#include <QTest>

using namespace testsupport;

namespace {

// Every property of the module with its value.
QStringList properties(const QObject &module)
{
    QStringList all;
    const QMetaObject *meta = module.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        all += QStringLiteral("%1 %2").arg(QString::fromLatin1(property.name()),
                                           property.read(&module).toString());
    }
    return all;
}

} // namespace

class WiringTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inbound_data();
    void inbound();
    void freeFormMessages();
};

void WiringTest::inbound_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QStringList>("fired");
    QTest::addColumn<QStringList>("changed");

    QTest::newRow("strike") << hex("494d4143 99096426")
                            << texts({"noteChanged()", "notePacketArrived(18765, 39177, 25638)"})
                            << texts({"note 75364"}); // 100 << 0, 38 << 8, pad 1 << 16
    QTest::newRow("aftertouch") << hex("494d4143 a90a7f31")
                                << texts(
                                       {"afterTouchNoteChanged()", "notePacketArrived(18765, 43274, 32561)"})
                                << texts({"afterTouchNote 67645823"}); // 127, 49 << 8, pad 8 << 16, 4 << 24
    QTest::newRow("position") << hex("494d4143 b90b2a10")
                              << texts({"positionChanged()", "notePacketArrived(18765, 47371, 10768)"})
                              << texts({"position 4138"});
    QTest::newRow("program") << hex("494d4143 c90c0005")
                             << texts({"programChanged(5)", "notePacketArrived(18765, 51468, 5)"})
                             << QStringList();
    QTest::newRow("beat") << hex("42544143 00030000") << texts({"beatChanged()"}) << texts({"beat 3"});
    QTest::newRow("compressor") << hex("4352 0001 0046 008c 0000 0007 000e 0023")
                                << texts({"monitorCpChanged()"})
                                << texts({"monitorCpInL 1", "monitorCpInR 2", "monitorCpGrR 0.1",
                                          "monitorCpOutL 0.2", "monitorCpOutR 0.5"});
    QTest::newRow("outputs")
        << hex("4452 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 "
               "0000 0000 0000 008c")
        << texts({"outputLevelsChanged()"}) << texts({"masterOutL 1", "usbInRLevel 2"});
    QTest::newRow("anything else") << hex("41424143 00070008") << texts({"udpPacketArrived(16706, 7, 8)"})
                                   << QStringList();
}

void WiringTest::inbound()
{
    QFETCH(QByteArray, datagram);
    QFETCH(QStringList, fired);
    QFETCH(QStringList, changed);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    const QStringList before = properties(engine.module);
    QVERIFY(engine.deliver({datagram}));
    QCOMPARE(engine.recorder.texts(), fired);
    QStringList different = properties(engine.module);
    for (const QString &property : before)
        different.removeAll(property);
    QCOMPARE(different, changed);
    QCOMPARE(log.warnings(), QStringList());
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void WiringTest::freeFormMessages()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    QStringList received;
    connect(&engine.module, &QConnectQmlPlugin::testCommand, this,
            [&received](const QString &high, const QString &low, const QString &value) {
                received << high << low << value;
            });
    connect(&engine.module, &QConnectQmlPlugin::sysEx, this,
            [&received](const QString &message) { received << message; });
    QVERIFY(engine.deliver({hex("494d4143 b90b1263"), hex("494d4143 b90b3462"), hex("494d4143 b90b5606"),
                            hex("494d4143 f0044110"), hex("494d4143 f7050000")}));
    QCOMPARE(received, texts({"12", "34", "56", "04f0104105f70000"}));
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

QTEST_MAIN(WiringTest)
#include "tst_wiring.moc"
