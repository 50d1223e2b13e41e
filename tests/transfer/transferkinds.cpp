#include "transferkinds.h"

#include "session.h"

#include "control/qconnectqmlplugin.h"

QByteArray TransferKind::file(int size, quint32 seed) const
{
    return size < header.size() ? noise(size, seed) : header + noise(size - header.size(), seed);
}

QStringList TransferKind::completed(quint16 status, int resends) const
{
    const int reported = status != 0 && !passesStatusOn ? 0xFF : status;
    QString text = complete;
    text.replace(QStringLiteral("%1"), QString::number(reported));
    text.replace(QStringLiteral("%2"), QString::number(resends));
    return text.split(QLatin1Char(';'));
}

QStringList TransferKind::progressed(int packets) const
{
    if (packets == 0 || progress.isEmpty())
        return {};
    return {QStringLiteral("%1 x%2").arg(progress).arg(packets)};
}

QVector<TransferKind> quickKinds()
{
    return {
        {"trigger firmware",
         [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendTriggerFirmware(path); },
         "TF",
         512,
         10,
         true,
         QByteArray("TGFW\x05\x00\x01\x00", 8),
         "",
         QStringLiteral("board.bin"),
         {QStringLiteral("triggerVersionChanged()"), QStringLiteral("intFwUpdateStarted()"),
          QStringLiteral("intTriggerFirmwareUpdateStarted(65540, 65541)")},
         QString(),
         QStringLiteral("intFwUpdateFinished();intTriggerFirmwareUpdateFinished()"),
         false},
        {"sound bank",
         [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendSoundBank(path); },
         "SB",
         1024,
         7,
         true,
         "",
         "",
         QStringLiteral("sounds.bin"),
         {},
         QStringLiteral("soundProgressChanged"),
         QStringLiteral("soundbankTransferComplete(%1, %2)"),
         false},
        {"trigger bank",
         [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendTriggerBank(path); },
         "TB",
         512,
         15,
         true,
         "",
         "",
         QStringLiteral("triggers.bin"),
         {},
         QStringLiteral("triggerProgressChanged"),
         QStringLiteral("triggerbankTransferComplete(%1)"),
         false},
        {"imported sound bank",
         [](QConnectQmlPlugin &plugin, const QString &path) {
             plugin.sendImportSoundBank(path, QStringLiteral("Kit A"), 0x1234);
         },
         "IS",
         512,
         7,
         true,
         "",
         "12344b6974204100",
         QStringLiteral("import.bin"),
         {},
         QStringLiteral("waveTransferProgress"),
         QStringLiteral("waveTransferComplete(4660, %1)"),
         true},
        {"imported wave sample",
         [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendImportWaveSample(path, 5); },
         "IW",
         512,
         7,
         true,
         "",
         "0005736e6172652e77617600",
         QStringLiteral("snare.wav"),
         {},
         QStringLiteral("waveTransferProgress"),
         QStringLiteral("waveTransferComplete(5, %1)"),
         true},
        {"bluetooth firmware",
         [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendBtFw(path); },
         "BF",
         512,
         1,
         false,
         "",
         "0003",
         QStringLiteral("module.b03"),
         {},
         QStringLiteral("btfwProgressChanged"),
         QStringLiteral("bluetoothTransferComplete(%1)"),
         false},
    };
}

TransferKind zeltaFirmwareKind()
{
    return {"sound-engine firmware",
            [](QConnectQmlPlugin &plugin, const QString &path) { plugin.sendZeltaFirmware(path); },
            "FW",
            512,
            10,
            false,
            "4810QN-abc1.05 - sound engine ",
            "",
            QStringLiteral("engine.bin"),
            {QStringLiteral("zeltaVersionChanged()"), QStringLiteral("intFwUpdateStarted()"),
             QStringLiteral("intZeltaFirmwareUpdateStarted(65540, 65541)")},
            QString(),
            QStringLiteral("zeltaVersionChanged();updateZeltaFwComplete();intFwUpdateFinished();"
                           "intZeltaFirmwareUpdateFinished()"),
            false};
}

void answerOldVersions(TransferPeer &peer)
{
    peer.answerQuery("VN", {{"VN", 1, 4}});
    peer.answerQuery("TV", {{"TV", 1, 4}});
}
