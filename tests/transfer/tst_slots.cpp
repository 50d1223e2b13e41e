#include "session.h"

#include "control/qconnectqmlplugin.h"
#include "support/hex.h"

#include <QTest>

// Slot commands, and the indices of bluetooth files.

using testsupport::hex;
using Call = void (*)(QConnectQmlPlugin &);
Q_DECLARE_METATYPE(Call)

class SlotsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void command_data();
    void command();
    void channel();
    void btFwSlotId_data();
    void btFwSlotId();
    void checkBtFw();

private:
    TestFiles m_files;
    Session m_session;
};

void SlotsTest::command_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QByteArray>("datagram");

    const auto row = [](const char *name, Call call, const char *events) {
        QTest::newRow(name) << call << hex("494d0003") + hex(events);
    };
    row(
        "deleteIsSlot(0)", [](QConnectQmlPlugin &plugin) { plugin.deleteIsSlot(0); },
        "0bb9633d 0bb96270 0bb90600");
    row(
        "deleteIsSlot(127)", [](QConnectQmlPlugin &plugin) { plugin.deleteIsSlot(127); },
        "0bb9633d 0bb96270 0bb9067f");
    row(
        "deleteIwSlot(5)", [](QConnectQmlPlugin &plugin) { plugin.deleteIwSlot(5); },
        "0bb9633d 0bb96271 0bb90605");
    row(
        "deleteIwSlot(255)", [](QConnectQmlPlugin &plugin) { plugin.deleteIwSlot(255); },
        "0bb9633d 0bb96271 0bb906ff");
    row(
        "deleteAllSlots()", [](QConnectQmlPlugin &plugin) { plugin.deleteAllSlots(); },
        "0bb9633d 0bb9627f 0bb9067e");
    row(
        "requestIsSlotInfo(1)", [](QConnectQmlPlugin &plugin) { plugin.requestIsSlotInfo(1); },
        "0bb9633d 0bb96200 0bb90601");
    row(
        "requestIwSlotInfo(2)", [](QConnectQmlPlugin &plugin) { plugin.requestIwSlotInfo(2); },
        "0bb9633d 0bb96201 0bb90602");
    row(
        "requestMemInfo()", [](QConnectQmlPlugin &plugin) { plugin.requestMemInfo(); },
        "0bb9633d 0bb9620f 0bb90600");
    row(
        "deepErase()", [](QConnectQmlPlugin &plugin) { plugin.deepErase(); }, "0bb96337 0bb96256 0bb90678");
}

// Each command sends one datagram and emits no signal.
void SlotsTest::command()
{
    QFETCH(const Call, call);
    QFETCH(const QByteArray, datagram);

    const int before = m_session.peer().received().size();
    m_session.forgetSeen();
    call(m_session.plugin());
    QCOMPARE(m_session.differenceWhenFinished({}), QString());
    QCOMPARE(m_session.peer().received().mid(before), (QVector<QByteArray>{datagram, hex("484c0000")}));
}

// The transfer engine accepts any channel; the status byte wraps.
void SlotsTest::channel()
{
    qconnectfirmware engine(&m_session.plugin(), nullptr);
    const int before = m_session.peer().received().size();
    engine.deleteAllSlots(0);
    engine.deepErase(15);
    engine.requestMemInfo(0x50);
    QVERIFY(m_session.peer().waitForCount(before + 3, patienceMs));
    QCOMPARE(m_session.peer().received().mid(before),
             (QVector<QByteArray>{hex("494d0003 0bb0633d 0bb0627f 0bb0067e"),
                                  hex("494d0003 0bbf6337 0bbf6256 0bbf0678"),
                                  hex("494d0003 0b00633d 0b00620f 0b000600")}));
}

void SlotsTest::btFwSlotId_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("id");

    const auto row = [](const char *path, int id) {
        QTest::newRow(path) << QString::fromUtf8(path) << id;
    };
    row("module.b00", 0);
    row("module.b07", 7);
    row("module.b15", 15);
    row("module.b99", 99);
    row("/media/sda1/x.y/module.b01", 1);
    row("noextension_b12", 12);
    row("module.bin", 0);
    row("module.b1x", 0);
    row("module.b-3", -3);
    row("module.ipf", 0x4950);
    row("module.IPF", -1);
    row("module.Ipf", -1);
    row("module.B07", -1);
    row("module.hex", -1);
    row("module.b007", -1);
    row("ipf", 0x4950);
    row("b12", 12);
    row("b1", 0);
    row("b", 0);
    row("x", -1);
    row("", -1);
}

void SlotsTest::btFwSlotId()
{
    QFETCH(const QString, path);
    QFETCH(const int, id);
    qconnectfirmware engine(&m_session.plugin(), nullptr);
    QCOMPARE(engine.getBtFwSlotId(path), id);
}

void SlotsTest::checkBtFw()
{
    const QString first = m_files.write(QStringLiteral("m.b00"), "0");
    const QString second = m_files.write(QStringLiteral("m.b01"), "1");
    const QString missing = m_files.path(QStringLiteral("m.b02"));
    QConnectQmlPlugin &plugin = m_session.plugin();
    QCOMPARE(plugin.checkBtFw({}), 0);
    QCOMPARE(plugin.checkBtFw({first}), 0);
    QCOMPARE(plugin.checkBtFw({first, second, first}), 0);
    QCOMPARE(plugin.checkBtFw({missing}), -1);
    QCOMPARE(plugin.checkBtFw({first, missing, second}), -1);
    QCOMPARE(plugin.checkBtFw({first, second, missing}), -1);
    QCOMPARE(plugin.checkBtFw({QString()}), -1);
    QCOMPARE(plugin.checkBtFw({m_files.path(QString())}), 0);
}

QTEST_GUILESS_MAIN(SlotsTest)
#include "tst_slots.moc"
