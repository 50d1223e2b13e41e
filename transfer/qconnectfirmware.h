#pragma once

#include "transfer/firmwaredesc.h"
#include "transfer/taskkinds.h"

#include <QJsonObject>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>
#include <QVector>
#include <QWaitCondition>

#include <atomic>
#include <vector>

class QConnectQmlPlugin;
class QFile;

/// Moves files to the sound engine and asks it for versions, in a thread of its own.
///
/// The object lives in the GUI thread and its public methods are called there; each returns at once. Tasks
/// are queued and worked off in order by the thread, which starts with the first task and ends when none is
/// left or when a transfer was aborted. After an abort the other tasks stay queued until a new one comes.
/// The engine's answers arrive as events of the control object, see handleAck(). Signals of this class are
/// emitted in the transfer thread; what is emitted on the control object is emitted in the GUI thread, and
/// never while a lock is held, so that a handler may call any method.
class qconnectfirmware : public QThread
{
    Q_OBJECT

public:
    /// plugin owns this object, sends its packets and relays its answers.
    qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent);
    ~qconnectfirmware() override;

    /// Aborts a running transfer, waits for the thread to end and starts no other. The wait has no limit: a
    /// pause between packets is finished first, the longest being the 20 s that the sound engine takes to
    /// restart with new firmware. To be called while packets can still be sent; a second call does nothing.
    void stop();

    // Files to send. Nothing is checked until the task's turn has come. A file that cannot be opened, or
    // firmware that carries no version, ends its task without a completion signal.

    /// Firmware of the sound engine, sent only if it is newer than what the engine reports.
    void sendZeltaFirmware(const QString &path);
    /// Firmware of the trigger board, sent only if it is newer than what the engine reports.
    void sendTriggerFirmware(const QString &path);
    void sendSoundBank(const QString &path);
    void sendTriggerBank(const QString &path);
    /// A sound bank for a numbered slot (0 to 65535); slot -1 sends it without slot and name.
    void sendImportSoundBank(const QString &path, const QString &name, int slot);
    /// A wave sample for a numbered slot (0 to 65535), named by its file; slot -1 as above.
    void sendImportWaveSample(const QString &path, int slot);
    /// One file of the bluetooth module's firmware; its extension tells which one.
    void sendBtFirmware(const QString &path);

    // Queries. The reply is waited for 20 s; it comes as the control object's signal of that value.

    void requestSoundBankVersion();
    void requestTriggerBankVersion();
    void requestHHRawValue();

    // Versions as last reported, as texts for display. Banks and boards differ: "V 1.05" and "V 65541".

    QString getZeltaVersion() const;
    QString getTriggerBoardVersion() const;
    QString getSoundBankVersion() const;
    QString getTriggerBankVersion() const;

    /// Version word of a sound-engine firmware file, -1 if it has none.
    int searchZeltaFwVersionInfo(const QString &path);
    /// Version word of a trigger-board firmware file, -1 if it has none.
    int searchTriggerFwVersionInfo(const QString &path);

    // Catalogues of installed banks, JSON files whose keys only QML knows.

    /// The file's text as Latin-1, up to the first zero byte; empty if it cannot be read.
    QString parseJsonFile(const QString &path);
    /// The file's top-level object; empty if it cannot be read or is no such JSON.
    QJsonObject parseSoundBankList(const QString &path);
    QJsonObject parseTriggerBankList(const QString &path);
    /// Copies the file over the catalogue: 0, or -1 if it cannot be read, -2 if the catalogue cannot be
    /// opened for writing. 0 also when the disk fills up meanwhile.
    int backupSoundBankList(const QString &path);
    int backupTriggerBankList(const QString &path);

    // Slot commands: one parameter message each, sent at once on a 0-based MIDI channel. No reply is awaited.

    void deleteIsSlot(unsigned char slot, unsigned char channel);
    void deleteIwSlot(unsigned char slot, unsigned char channel);
    void deleteAllSlots(unsigned char channel);
    void requestIsSlotInfo(unsigned char slot, unsigned char channel);
    void requestIwSlotInfo(unsigned char slot, unsigned char channel);
    void requestMemInfo(unsigned char channel);
    void deepErase(unsigned char channel);

    /// Index of a bluetooth firmware file, told by the path's last three characters: "bNN" is NN, a "b"
    /// before anything else 0, "ipf" 0x4950, and the rest -1.
    int getBtFwSlotId(const QString &path);
    /// 0 when all files exist, -1 otherwise.
    int checkBtFirmware(const QStringList &files);

public Q_SLOTS:
    /// Takes an acknowledgement or reply of the sound engine: its kind and two values.
    void handleAck(quint16 id, quint16 a, quint16 b);

Q_SIGNALS:
    /// The sound engine has acknowledged its new firmware.
    void zeltaFwUpdateDone();
    /// A task has ended, well or not. Tasks that were dropped for want of a file version do not tell.
    void transferDone();
    void zeltaFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void triggerFirmwareUpdateStarted(int deviceVersion, int fileVersion);
    void zeltaFirmwareUpdateFinished();
    void triggerFirmwareUpdateFinished();

    // Progress, a fraction of the file, or of the set of files for bluetooth. Once per data packet.
    void soundTransferProgress(qreal progress);
    void triggerTransferProgress(qreal progress);
    void btfwTransferProgress(qreal progress);
    void importSlotProgress(int slot, qreal progress);

    // Completion: 0 for success, 0xFF for an end that was not acknowledged or acknowledged as wrong. Imports
    // carry the engine's own status word instead.
    void importSlotComplete(int slot, quint16 status);
    void importSBComplete(quint16 status, quint32 retransmits);
    void importTBComplete(quint16 status);
    void importBTComplete(quint16 status);

    // Around a firmware transfer of either kind.
    void internalUpdateStarted();
    void internalUpdateFinished();

protected:
    void run() override;

private:
    Q_DISABLE_COPY(qconnectfirmware)

    /// Versions on both sides of a firmware update.
    struct Versions
    {
        int device = 0;
        int file = 0;
    };
    struct EndResult
    {
        bool failed;
        quint16 status;
    };
    struct VersionReply;
    static const VersionReply *versionReply(quint16 id);

    // Queue and thread, GUI thread.
    void queue(const FirmwareDesc &task, QThread::Priority priority);

    // Task loop, transfer thread.
    bool takeTask(FirmwareDesc &task);
    bool perform(const FirmwareDesc &task);
    bool ask(quint16 query, int &reply);
    bool waitForAnswer(int waitMs);

    // One file, transfer thread.
    bool sendFile(const FirmwareDesc &task, const zelta::TaskTraits &traits, const Versions &versions);
    void resetFileState();
    bool sendStart(const FirmwareDesc &task, quint16 content, qint64 size);
    void reportStart(int kind, const Versions &versions);
    quint32 sendData(QFile &file, qint64 announcedSize, const FirmwareDesc &task,
                     const zelta::TaskTraits &traits);
    bool prepareData(QFile &file, const FirmwareDesc &task, int chunkBytes);
    void reportProgress(const FirmwareDesc &task);
    void sendEnd(const zelta::TaskTraits &traits, quint32 checksum);

    // Completion, transfer thread.
    void reportEnd(const FirmwareDesc &task, const Versions &versions);
    void reportZeltaFirmwareEnd(bool failed, int fileVersion);
    void reportImportEnd(int slot);
    quint16 reportedStatus(const EndResult &result, const QString &subject);
    EndResult endResult();
    quint32 retransmits();

    // Acknowledgements, GUI thread.
    void handleEndAck(quint16 a, quint16 b);
    void handleDataAck(quint16 a, quint16 b);
    void requestRetransmit(quint32 from);
    void wakeWaiter();

    // The log of transfers has no sink: lines are made and dropped.
    void pushLogLine(const QString &line);
    void writeLogToFile(const QString &path) const;

    QConnectQmlPlugin *const m_plugin;

    // Held for every send that an answer may follow, so that no answer is handled before the wait begins.
    // Taken before m_retransmitMutex where both are needed.
    QMutex m_taskMutex;
    QMutex m_retransmitMutex;
    QWaitCondition m_ackCondition;

    // Guarded by m_taskMutex.
    QVector<FirmwareDesc> m_tasks;
    bool m_answered = false; ///< something came that ends a wait
    bool m_leaving = false;  ///< the thread takes no more tasks and no more locks
    bool m_stopped = false;
    int m_lastReplyValue = 0;
    bool m_endFailed = false;
    quint16 m_endStatus = 0;

    // Guarded by m_retransmitMutex.
    bool m_retransmitRequested = false;
    quint32 m_retransmitFrom = 0;
    quint32 m_retransmitCount = 0;

    // Read without a lock.
    std::atomic<bool> m_abortRequested{false};
    std::atomic<bool> m_stopRequested{false};
    std::atomic<int> m_transferStatus{0}; ///< 0, -1 file not opened, -2 aborted; nobody asks yet
    std::atomic<int> m_zeltaVersion{0};
    std::atomic<int> m_triggerBoardVersion{0};
    std::atomic<int> m_soundBankVersion{0};
    std::atomic<int> m_triggerBankVersion{0};

    // Of the transfer thread.
    quint32 m_currentPacket = 0;         ///< number of the next data packet
    std::vector<qreal> m_untoldProgress; ///< of the packets that no signal has told of
    QStringList m_logLines;              ///< room for the log of one file
};
