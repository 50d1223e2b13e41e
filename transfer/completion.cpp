#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"

#include <QMutexLocker>

namespace {

constexpr quint16 statusEndFailed = 0xFF;

} // namespace

void qconnectfirmware::reportEnd(const FirmwareDesc &task, const Versions &versions)
{
    const EndResult result = endResult();
    switch (task.kind) {
    case zelta::ZeltaFirmwareTask: reportZeltaFirmwareEnd(result.failed, versions.file); break;
    case zelta::TriggerFirmwareTask:
        // The board's version is not taken over: the board is asked before every update anyway.
        Q_EMIT internalUpdateFinished();
        Q_EMIT triggerFirmwareUpdateFinished();
        break;
    case zelta::SoundBankTask:
        Q_EMIT importSBComplete(reportedStatus(result, QStringLiteral("soundbank")), retransmits());
        break;
    case zelta::TriggerBankTask:
        Q_EMIT importTBComplete(reportedStatus(result, QStringLiteral("triggerbank")));
        break;
    case zelta::ImportSoundBankTask:
    case zelta::ImportWaveSampleTask: reportImportEnd(task.slot); break;
    case zelta::BtFirmwareTask:
        Q_EMIT importBTComplete(reportedStatus(result, QStringLiteral("bluetooth")));
        break;
    default: break;
    }
}

void qconnectfirmware::reportZeltaFirmwareEnd(bool failed, int fileVersion)
{
    if (failed) {
        pushLogLine(QStringLiteral("notify zelta fw update failed --> do nothing"));
    } else {
        pushLogLine(QStringLiteral("notify zelta fw update complete --> reinit"));
        m_zeltaVersion = fileVersion;
        // Posted like the signals below, so that the two keep their order and QML's handlers run in the
        // thread of QML.
        QMetaObject::invokeMethod(m_plugin, "zeltaVersionChanged", Qt::QueuedConnection);
        Q_EMIT zeltaFwUpdateDone();
    }
    Q_EMIT internalUpdateFinished();
    Q_EMIT zeltaFirmwareUpdateFinished();
}

// Imports report the engine's own word, also for an end that was not acknowledged and after a refusal.
void qconnectfirmware::reportImportEnd(int slot)
{
    const quint16 status = endResult().status;
    pushLogLine(QStringLiteral("notify wave import complete %1 %2").arg(slot).arg(status));
    Q_EMIT importSlotComplete(slot, status);
}

quint16 qconnectfirmware::reportedStatus(const EndResult &result, const QString &subject)
{
    if (result.failed) {
        pushLogLine(QStringLiteral("notify %1 update failed --> do nothing").arg(subject));
        return statusEndFailed;
    }
    pushLogLine(QStringLiteral("notify %1 update complete --> reinit").arg(subject));
    return result.status;
}

qconnectfirmware::EndResult qconnectfirmware::endResult()
{
    const QMutexLocker locker(&m_taskMutex);
    return {m_endFailed, m_endStatus};
}

quint32 qconnectfirmware::retransmits()
{
    const QMutexLocker locker(&m_retransmitMutex);
    return m_retransmitCount;
}
