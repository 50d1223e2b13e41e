#include "support/connectedmodule.h"
#include "support/texts.h"

#include <QGuiApplication>
#include <QTest>

#include <functional>

using namespace testsupport;

using Report = std::function<bool(QObject *module)>;
Q_DECLARE_METATYPE(Report)

/// Reports of the transfer engine. Each slot to which it is connected emits its own signal.
class RelaysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void relay_data();
    void relay();
    void progress_data();
    void progress();
};

void RelaysTest::relay_data()
{
    QTest::addColumn<Report>("report");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *expected, const Report &report) {
        QTest::newRow(name) << report << QString::fromLatin1(expected);
    };
    const auto plain = [&row](const char *slot, const char *expected) {
        row(slot, expected, [slot](QObject *module) { return QMetaObject::invokeMethod(module, slot); });
    };

    row("progress of a slot", "waveTransferProgress(5, 0.25)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportSlotProgress", Q_ARG(int, 5),
                                         Q_ARG(qreal, 0.25));
    });
    row("slot complete", "waveTransferComplete(5, 227)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportSlotComplete", Q_ARG(int, 5),
                                         Q_ARG(quint16, 0x00E3));
    });
    row("slot -1 complete with the highest status", "waveTransferComplete(-1, 65535)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportSlotComplete", Q_ARG(int, -1),
                                         Q_ARG(quint16, 0xFFFF));
    });
    row("sound bank complete", "soundbankTransferComplete(255, 70000)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportSBComplete", Q_ARG(quint16, 255),
                                         Q_ARG(quint32, 70000));
    });
    row("trigger bank complete", "triggerbankTransferComplete(255)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportTBComplete", Q_ARG(quint16, 255));
    });
    row("bluetooth complete", "bluetoothTransferComplete(255)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateImportBTComplete", Q_ARG(quint16, 255));
    });
    row("sound engine's update started", "intZeltaFirmwareUpdateStarted(65541, 65542)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "internalZeltaFirmwareUpdateStarted", Q_ARG(int, 65541),
                                         Q_ARG(int, 65542));
    });
    row("trigger board's update started", "intTriggerFirmwareUpdateStarted(-1, 7)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "internalTriggerFirmwareUpdateStarted", Q_ARG(int, -1),
                                         Q_ARG(int, 7));
    });
    row("program", "programChanged(255)", [](QObject *module) {
        return QMetaObject::invokeMethod(module, "updateProgram", Q_ARG(quint8, 255));
    });
    plain("zeltaFwUpdated", "updateZeltaFwComplete()");
    plain("internalFwUpdateStarted", "intFwUpdateStarted()");
    plain("internalFwUpdateFinished", "intFwUpdateFinished()");
    plain("internalZeltaFirmwareUpdateFinished", "intZeltaFirmwareUpdateFinished()");
    plain("internalTriggerFirmwareUpdateFinished", "intTriggerFirmwareUpdateFinished()");
}

void RelaysTest::relay()
{
    QFETCH(Report, report);
    QFETCH(QString, expected);
    ConnectedModule connected;
    QVERIFY(report(&connected.module));
    QCOMPARE(connected.recorder.texts(), QStringList{expected});
    QVERIFY(report(&connected.module));
    QCOMPARE(connected.recorder.texts(), (QStringList{expected, expected}));
    QCOMPARE(connected.module.soundBankProgress(), 0.0);
    QCOMPARE(connected.module.triggerBankProgress(), 0.0);
    QCOMPARE(connected.module.btfwProgress(), 0.0);
    QVERIFY(connected.peer.nothingSentBy(&connected.module));
}

void RelaysTest::progress_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("expected");
    QTest::newRow("sound bank") << QByteArray("updateSoundTransferProgress")
                                << QByteArray("soundBankProgress")
                                << QStringLiteral("soundProgressChanged()");
    QTest::newRow("trigger bank") << QByteArray("updateTriggerTransferProgress")
                                  << QByteArray("triggerBankProgress")
                                  << QStringLiteral("triggerProgressChanged()");
    QTest::newRow("bluetooth") << QByteArray("updateBtFwTransferProgress") << QByteArray("btfwProgress")
                               << QStringLiteral("btfwProgressChanged()");
}

void RelaysTest::progress()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, property);
    QFETCH(QString, expected);
    ConnectedModule connected;
    const double values[] = {0.0, 0.25, 0.25, 1.0, 0.0};
    QStringList signalTexts;
    for (const double value : values) {
        QVERIFY(QMetaObject::invokeMethod(&connected.module, slot.constData(), Q_ARG(qreal, value)));
        signalTexts += expected;
        QCOMPARE(connected.module.property(property.constData()).toDouble(), value);
        QCOMPARE(connected.recorder.texts(), signalTexts);
        const double sum = connected.module.soundBankProgress() + connected.module.triggerBankProgress() +
                           connected.module.btfwProgress();
        QCOMPARE(sum, value); // the other two do not change
    }
}

QTEST_MAIN(RelaysTest)
#include "tst_relays.moc"
