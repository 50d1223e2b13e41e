#include "transfer/taskkinds.h"

#include "transfer/btfirmware.h"
#include "transfer/datapacket.h"
#include "transfer/firmwaredesc.h"
#include "transfer/qconnectfirmware.h"
#include "transfer/transfertags.h"

#include <array>

namespace zelta {

namespace {

constexpr quint16 statusEndFailed = 0xFF;

void appendBankName(qconnectfirmware &engine, DATA_PACKET &packet, const FirmwareDesc &task)
{
    engine.pushLogLine(QStringLiteral("/ToDo set ID "));
    packet.setFileName(task.name);
}

void appendFileName(qconnectfirmware &engine, DATA_PACKET &packet, const FirmwareDesc &task)
{
    const QString fileName = task.path.mid(task.path.lastIndexOf(QLatin1Char('/')) + 1);
    engine.pushLogLine(QStringLiteral("set fileName %1").arg(fileName));
    packet.setFileName(fileName);
}

void appendNothing(qconnectfirmware & /*engine*/, DATA_PACKET & /*packet*/, const FirmwareDesc & /*task*/) {}

void reportSoundBankProgress(qconnectfirmware &engine, int /*slot*/, qreal fraction)
{
    Q_EMIT engine.soundTransferProgress(fraction);
}

void reportTriggerBankProgress(qconnectfirmware &engine, int /*slot*/, qreal fraction)
{
    Q_EMIT engine.triggerTransferProgress(fraction);
}

void reportImportProgress(qconnectfirmware &engine, int slot, qreal fraction)
{
    Q_EMIT engine.importSlotProgress(slot, fraction);
}

void reportBtProgress(qconnectfirmware &engine, int slot, qreal /*fraction*/)
{
    Q_EMIT engine.btfwTransferProgress(btSetProgress(slot));
}

quint16 reportedStatus(qconnectfirmware &engine, const FileEnd &end, const QString &subject)
{
    if (end.failed) {
        engine.pushLogLine(QStringLiteral("notify %1 update failed --> do nothing").arg(subject));
        return statusEndFailed;
    }
    engine.pushLogLine(QStringLiteral("notify %1 update complete --> reinit").arg(subject));
    return end.status;
}

void reportZeltaFirmwareEnd(qconnectfirmware &engine, const FileEnd &end, int /*slot*/, int fileVersion)
{
    if (end.failed) {
        engine.pushLogLine(QStringLiteral("notify zelta fw update failed --> do nothing"));
    } else {
        engine.pushLogLine(QStringLiteral("notify zelta fw update complete --> reinit"));
        engine.setZeltaVersion(fileVersion);
        Q_EMIT engine.zeltaFwUpdateDone();
    }
    Q_EMIT engine.internalUpdateFinished();
    Q_EMIT engine.zeltaFirmwareUpdateFinished();
}

// The stored version of the board stays unchanged, because it is queried before every update.
void reportTriggerFirmwareEnd(qconnectfirmware &engine, const FileEnd & /*end*/, int /*slot*/,
                              int /*fileVersion*/)
{
    Q_EMIT engine.internalUpdateFinished();
    Q_EMIT engine.triggerFirmwareUpdateFinished();
}

void reportSoundBankEnd(qconnectfirmware &engine, const FileEnd &end, int /*slot*/, int /*fileVersion*/)
{
    const quint16 status = reportedStatus(engine, end, QStringLiteral("soundbank"));
    Q_EMIT engine.importSBComplete(status, end.retransmits);
}

void reportTriggerBankEnd(qconnectfirmware &engine, const FileEnd &end, int /*slot*/, int /*fileVersion*/)
{
    Q_EMIT engine.importTBComplete(reportedStatus(engine, end, QStringLiteral("triggerbank")));
}

// Imports report the status of the engine unchanged, also when the end failed.
void reportImportEnd(qconnectfirmware &engine, const FileEnd &end, int slot, int /*fileVersion*/)
{
    engine.pushLogLine(QStringLiteral("notify wave import complete %1 %2").arg(slot).arg(end.status));
    Q_EMIT engine.importSlotComplete(slot, end.status);
}

void reportBtEnd(qconnectfirmware &engine, const FileEnd &end, int /*slot*/, int /*fileVersion*/)
{
    Q_EMIT engine.importBTComplete(reportedStatus(engine, end, QStringLiteral("bluetooth")));
}

constexpr int standardChunk = 512;
constexpr int soundBankChunk = 1024;
constexpr int standardEndWait = 15000;
constexpr int soundBankEndWait = 600000;

// clang-format off
constexpr std::array<TaskTraits, TaskKindCount> taskTraits = {{
    // kind, query, file version, content,
    //  chunk bytes, pause ms, end wait ms, checksum, pause after the end s,
    //  name, start, progress, end, end after an abort, priority of the thread if not normal
    {ZeltaFirmwareTask, zeltaVersionQuery, zeltaFirmwareVersion, zeltaFirmwareContent,
     standardChunk, 10, standardEndWait, false, 20,
     nullptr, &qconnectfirmware::zeltaFirmwareUpdateStarted, nullptr, reportZeltaFirmwareEnd, false},
    {TriggerFirmwareTask, triggerVersionQuery, triggerFirmwareVersion, triggerFirmwareContent,
     standardChunk, 10, standardEndWait, true, 0,
     nullptr, &qconnectfirmware::triggerFirmwareUpdateStarted, nullptr, reportTriggerFirmwareEnd, false},
    {SoundBankTask, 0, nullptr, soundBankContent,
     soundBankChunk, 7, soundBankEndWait, true, 0,
     nullptr, nullptr, reportSoundBankProgress, reportSoundBankEnd, false, QThread::TimeCriticalPriority},
    {TriggerBankTask, 0, nullptr, triggerBankContent,
     standardChunk, 15, standardEndWait, true, 0,
     nullptr, nullptr, reportTriggerBankProgress, reportTriggerBankEnd, false},
    {ImportSoundBankTask, 0, nullptr, importSoundBankContent,
     standardChunk, 7, standardEndWait, true, 0,
     appendBankName, nullptr, reportImportProgress, reportImportEnd, true},
    {ImportWaveSampleTask, 0, nullptr, importWaveSampleContent,
     standardChunk, 7, standardEndWait, true, 0,
     appendFileName, nullptr, reportImportProgress, reportImportEnd, true},
    {BtFirmwareTask, 0, nullptr, btFirmwareContent,
     standardChunk, 1, standardEndWait, false, 0,
     appendNothing, nullptr, reportBtProgress, reportBtEnd, false},
    {SoundBankVersionTask, soundBankVersionQuery},
    {TriggerBankVersionTask, triggerBankVersionQuery},
    {HihatRawValueTask, hihatRawValueQuery},
}};
// clang-format on

// GCC cannot compare function pointers here when it builds for a sanitizer.
constexpr bool isComplete(const TaskTraits &traits)
{
    return traits.content == 0 ? traits.query != 0
                               : traits.chunkBytes > 0 && traits.chunkBytes % 2 == 0 && traits.pauseMs > 0 &&
                                     traits.endWaitMs > 0;
}

constexpr bool everyKindHasItsRow()
{
    for (std::size_t i = 0; i < taskTraits.size(); ++i) {
        if (taskTraits[i].kind != int(i) || !isComplete(taskTraits[i]))
            return false;
    }
    return true;
}
static_assert(everyKindHasItsRow(), "one complete row for each kind, in the order of the kinds");

} // namespace

const TaskTraits *traitsOf(int kind)
{
    return kind >= 0 && kind < int(taskTraits.size()) ? &taskTraits[std::size_t(kind)] : nullptr;
}

} // namespace zelta
