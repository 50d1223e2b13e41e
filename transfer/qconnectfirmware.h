#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QThread>

class QConnectQmlPlugin;

/// The transfer engine: moves files to the sound engine and asks it for versions, in a thread of its own.
class qconnectfirmware : public QThread
{
    Q_OBJECT

public:
    qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent);
    ~qconnectfirmware() override;

    /// Aborts what runs and joins the thread, without limit.
    void stop();

    void sendZeltaFirmware(const QString &path);
    void sendTriggerFirmware(const QString &path);
    void sendSoundBank(const QString &path);
    void sendTriggerBank(const QString &path);
    void sendImportSoundBank(const QString &path, const QString &name, int slot);
    void sendImportWaveSample(const QString &path, int slot);
    void sendBtFirmware(const QString &path);
    void requestSoundBankVersion();
    void requestTriggerBankVersion();
    void requestHHRawValue();

    QString getZeltaVersion() const;
    QString getTriggerBoardVersion() const;
    QString getSoundBankVersion() const;
    QString getTriggerBankVersion() const;

    QString parseJsonFile(const QString &path);
    QJsonObject parseSoundBankList(const QString &path);
    QJsonObject parseTriggerBankList(const QString &path);
    int backupSoundBankList(const QString &path);
    int backupTriggerBankList(const QString &path);

    void deleteIsSlot(quint8 slot, quint8 channel);
    void deleteIwSlot(quint8 slot, quint8 channel);
    void deleteAllSlots(quint8 channel);
    void requestIsSlotInfo(quint8 slot, quint8 channel);
    void requestIwSlotInfo(quint8 slot, quint8 channel);
    void requestMemInfo(quint8 channel);
    void deepErase(quint8 channel);
    int checkBtFirmware(const QStringList &files);

public Q_SLOTS:
    void handleAck(quint16 id, quint16 a, quint16 b);

Q_SIGNALS:
    void zeltaFwUpdateDone();
    void transferDone();
    void zeltaFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void triggerFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void zeltaFirmwareUpdateFinished();
    void triggerFirmwareUpdateFinished();
    void soundTransferProgress(double progress);
    void triggerTransferProgress(double progress);
    void btfwTransferProgress(double progress);
    void importSlotProgress(int slot, double progress);
    void importSlotComplete(int slot, ushort status);
    void importSBComplete(ushort status, uint retransmits);
    void importTBComplete(ushort status);
    void importBTComplete(ushort status);
    void internalUpdateStarted();
    void internalUpdateFinished();

private:
    QConnectQmlPlugin *const m_plugin;
};
