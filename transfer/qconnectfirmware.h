#pragma once

#include "transfer/btfirmware.h"
#include "transfer/catalogue.h"
#include "transfer/fileversions.h"
#include "transfer/slotcommands.h"
#include "transfer/taskkinds.h"
#include "transfer/transferstate.h"
#include "transfer/versiontexts.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QThread>

#include <atomic>

class QConnectQmlPlugin;

/// Sends files to the sound engine and asks it for versions, in a thread of its own.
///
/// The object lives in the GUI thread. Its public methods are called there and return at once, except where
/// noted. The thread runs the queued tasks in order. It starts with the first task and ends when the queue is
/// empty or a transfer was aborted; after an abort the other tasks stay queued until a new one is queued. The
/// engine's answers arrive as events of the control object, see handleAck().
///
/// Signals of this class are emitted in the transfer thread, signals of the control object in the GUI thread.
/// No signal is emitted with a lock held, so a handler may call any method.
class qconnectfirmware : public QThread
{
    Q_OBJECT

public:
    /// plugin owns this object, sends its packets and emits the engine's answers.
    qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent);
    ~qconnectfirmware() override;

    /// Aborts a running transfer, waits for the thread to end and ignores later tasks. The thread finishes a
    /// pause first: 4 s before a resend, 20 s after a firmware update of the sound engine. Must be called
    /// while packets can still be sent. A second call does nothing.
    void stop();

    // Files to send. A file is not checked before its task runs. A file that cannot be opened, and firmware
    // without a version, end the task without a completion signal.

    /// Firmware of the sound engine; sent only if it is newer than the version that the engine reports.
    void sendZeltaFirmware(const QString &path) { queue(zelta::ZeltaFirmwareTask, path); }
    /// Firmware of the trigger board; sent only if it is newer than the version that the engine reports.
    void sendTriggerFirmware(const QString &path) { queue(zelta::TriggerFirmwareTask, path); }
    void sendSoundBank(const QString &path) { queue(zelta::SoundBankTask, path); }
    void sendTriggerBank(const QString &path) { queue(zelta::TriggerBankTask, path); }
    /// A sound bank for a slot (0 to 65535) with a name; slot -1 sends it without slot and name.
    void sendImportSoundBank(const QString &path, const QString &name, int slot)
    {
        queue(zelta::ImportSoundBankTask, path, name, slot);
    }
    /// A wave sample for a slot (0 to 65535), named after its file; slot -1 as above.
    void sendImportWaveSample(const QString &path, int slot)
    {
        queue(zelta::ImportWaveSampleTask, path, QString(), slot);
    }
    /// One file of the firmware of the bluetooth module; see getBtFwSlotId().
    void sendBtFirmware(const QString &path)
    {
        queue(zelta::BtFirmwareTask, path, QString(), getBtFwSlotId(path));
    }

    // Queries. The thread waits up to 20 s for a reply; the control object emits the signal of the value.

    void requestSoundBankVersion() { queue(zelta::SoundBankVersionTask); }
    void requestTriggerBankVersion() { queue(zelta::TriggerBankVersionTask); }
    void requestHHRawValue() { queue(zelta::HihatRawValueTask); }

    // Texts of the versions as last reported, 0 before that.

    QString getZeltaVersion() const { return zelta::majorMinorText(m_zeltaVersion); }
    QString getTriggerBoardVersion() const { return zelta::wholeNumberText(m_triggerBoardVersion); }
    QString getSoundBankVersion() const { return zelta::majorMinorText(m_soundBankVersion); }
    QString getTriggerBankVersion() const { return zelta::wholeNumberText(m_triggerBankVersion); }

    // Versions of firmware files, see fileversions.h.

    int searchZeltaFwVersionInfo(const QString &path) { return zelta::zeltaFirmwareVersion(path); }
    int searchTriggerFwVersionInfo(const QString &path) { return zelta::triggerFirmwareVersion(path); }

    // Catalogues of installed banks, see catalogue.h.

    QString parseJsonFile(const QString &path) { return zelta::catalogueText(path); }
    QJsonObject parseSoundBankList(const QString &path) { return zelta::catalogueObject(path); }
    QJsonObject parseTriggerBankList(const QString &path) { return zelta::catalogueObject(path); }
    int backupSoundBankList(const QString &path) { return zelta::replaceSoundBankCatalogue(path); }
    int backupTriggerBankList(const QString &path) { return zelta::replaceTriggerBankCatalogue(path); }

    // Slot commands. Each sends one parameter message at once, on a 0-based MIDI channel. The engine's reply
    // is not awaited.

    void deleteIsSlot(unsigned char slot, unsigned char channel)
    {
        sendParameter(zelta::deleteIsSlotNumber, slot, channel);
    }
    void deleteIwSlot(unsigned char slot, unsigned char channel)
    {
        sendParameter(zelta::deleteIwSlotNumber, slot, channel);
    }
    void deleteAllSlots(unsigned char channel)
    {
        sendParameter(zelta::deleteAllSlotsNumber, zelta::deleteAllSlotsValue, channel);
    }
    void requestIsSlotInfo(unsigned char slot, unsigned char channel)
    {
        sendParameter(zelta::isSlotInfoNumber, slot, channel);
    }
    void requestIwSlotInfo(unsigned char slot, unsigned char channel)
    {
        sendParameter(zelta::iwSlotInfoNumber, slot, channel);
    }
    void requestMemInfo(unsigned char channel) { sendParameter(zelta::memInfoNumber, 0, channel); }
    void deepErase(unsigned char channel)
    {
        sendParameter(zelta::deepEraseNumber, zelta::deepEraseValue, channel);
    }

    // Bluetooth firmware, see btfirmware.h.

    int getBtFwSlotId(const QString &path) { return zelta::btFileIndex(path); }
    /// 0 when all files exist, otherwise -1. Waits while the transfer thread sends a packet.
    int checkBtFirmware(const QStringList &files);

    // For the other classes of the transfer engine.

    /// Stores the version of firmware that was sent; the control object emits zeltaVersionChanged(). Transfer
    /// thread.
    void setZeltaVersion(int version);
    /// Hook for a log of transfers; does nothing. Any thread.
    void pushLogLine(const QString &line);

public Q_SLOTS:
    /// Handles an answer of the sound engine: its tag and two values. GUI thread.
    void handleAck(quint16 id, quint16 a, quint16 b);

Q_SIGNALS:
    /// The sound engine has acknowledged its new firmware.
    void zeltaFwUpdateDone();
    /// A task has ended, whatever its outcome. Not emitted for firmware without a version, for a file that
    /// FileTransfer::run() refuses, and when a query is aborted.
    void transferDone();
    void zeltaFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void triggerFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void zeltaFirmwareUpdateFinished();
    void triggerFirmwareUpdateFinished();

    // Progress, once per data packet: the sent fraction of the file, or of the set of bluetooth files.
    void soundTransferProgress(qreal progress);
    void triggerTransferProgress(qreal progress);
    void btfwTransferProgress(qreal progress);
    void importSlotProgress(int slot, qreal progress);

    // Completion: 0 for success, 0xFF for an end that was not acknowledged or acknowledged with an error.
    // Imports report the status of the engine unchanged.
    void importSlotComplete(int slot, quint16 status);
    void importSBComplete(quint16 status, quint32 retransmits);
    void importTBComplete(quint16 status);
    void importBTComplete(quint16 status);

    // Start and end of a firmware transfer of either kind.
    void internalUpdateStarted();
    void internalUpdateFinished();

protected:
    void run() override;

private:
    Q_DISABLE_COPY(qconnectfirmware)

    struct VersionReply;
    static const VersionReply *versionReply(quint16 id);

    void queue(zelta::TaskKind kind, const QString &path = QString(), const QString &name = QString(),
               int slot = -1);
    bool perform(const FirmwareDesc &task);
    void handleEndAck(quint16 a, quint16 b);
    void handleDataAck(quint16 a, quint16 b);
    void sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel);
    /// Hook for a log of transfers; does nothing.
    void writeLogToFile(const QString &path) const;

    QConnectQmlPlugin *const m_plugin;
    zelta::TransferState m_state;
    std::atomic<int> m_zeltaVersion{0};
    std::atomic<int> m_triggerBoardVersion{0};
    std::atomic<int> m_soundBankVersion{0};
    std::atomic<int> m_triggerBankVersion{0};
    QStringList m_logLines; ///< log of the current file; used by the transfer thread
};
