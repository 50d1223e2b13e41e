#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

// QML handlers of transfers and versions that call the next method at once, and bindings to the changed
// values.

namespace {

const char screen[] = R"(
import ZeltaConnectTest 1.0

ZeltaConnect {
    property string shownVersion: zeltaFwVersion
    property string shownBank: soundBankVersion
    property int rounds: 0
    property var completions: []
    property var updates: []
    property string file
    property string firmware

    function begin() {
        requestSoundBankVersion();
        sendZeltaFirmware(firmware);
    }
    onSoundbankVersionChanged: {
        checkBtFw([file]);
        if (++rounds < 30)
            requestTriggerBankVersion();
        else
            sendSoundBank(file);
    }
    onTriggerbankVersionChanged: requestHHRawValue()
    onHihatRawValueChanged: requestSoundBankVersion()
    onSoundProgressChanged: requestMemInfo()
    onSoundbankTransferComplete: {
        completions.push("sound bank " + complete + " " + retransmitCount + " " + soundBankProgress);
        sendTriggerBank(file);
    }
    onTriggerbankTransferComplete: {
        completions.push("trigger bank " + complete);
        sendImportWaveSample(file, 3);
    }
    onWaveTransferComplete: {
        completions.push("sample " + slot + " " + complete);
        sendBtFw(file);
    }
    onBluetoothTransferComplete: completions.push("bluetooth " + complete)
    onIntZeltaFirmwareUpdateStarted: updates.push("started " + currentVersion + " " + newVersion)
    onZeltaVersionChanged: updates.push("version " + zeltaFwVersion)
    onUpdateZeltaFwComplete: updates.push("complete")
    onIntFwUpdateFinished: updates.push("finished")
    onIntZeltaFirmwareUpdateFinished: updates.push("engine finished")
}
)";

} // namespace

class TransferHandlersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chainOfRequests();

private:
    TestFiles m_files;
};

// A firmware update runs first; handlers queue everything else behind it.
void TransferHandlersTest::chainOfRequests()
{
    TransferPeer peer(qEnvironmentVariable("ZELTACONNECT_ENGINE"));
    qputenv("ZELTACONNECT_ENGINE", peer.endpoint().toLatin1());
    answerOldVersions(peer);
    const auto ids = std::vector<Tag>{"SN", "TN", "HL"};
    for (const Tag id : ids)
        peer.answerQuery(id, {{id, 2, 7}});

    qmlRegisterType<QConnectQmlPlugin>("ZeltaConnectTest", 1, 0, "ZeltaConnect");
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(screen, QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    object->setProperty("file", m_files.write(QStringLiteral("file"), noise(3000)));
    const TransferKind firmware = zeltaFirmwareKind();
    object->setProperty("firmware", m_files.write(firmware.fileName, firmware.file(3000)));
    QVERIFY(QMetaObject::invokeMethod(object.get(), "begin"));

    const auto list = [&](const char *name) {
        return object->property(name).value<QJSValue>().toVariant().toStringList();
    };
    QVERIFY(QTest::qWaitFor([&] { return list("completions").size() == 4; }, patienceMs));
    QCOMPARE(object->property("rounds").toInt(), 30);
    QCOMPARE(object->property("shownBank").toString(), QStringLiteral("V 2.07"));
    QCOMPARE(object->property("shownVersion").toString(), QStringLiteral("V 1.05"));
    QCOMPARE(list("completions"),
             (QStringList{QStringLiteral("sound bank 0 0 1"), QStringLiteral("trigger bank 0"),
                          QStringLiteral("sample 3 0"), QStringLiteral("bluetooth 0")}));
    QCOMPARE(list("updates"),
             (QStringList{QStringLiteral("version V 1.04"), QStringLiteral("started 65540 65541"),
                          QStringLiteral("version V 1.05"), QStringLiteral("complete"),
                          QStringLiteral("finished"), QStringLiteral("engine finished")}));
}

QTEST_GUILESS_MAIN(TransferHandlersTest)
#include "tst_handlers.moc"
