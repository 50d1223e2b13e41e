#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"

#include <QMutexLocker>

namespace {

constexpr int noSlot = -1;

} // namespace

qconnectfirmware::qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent)
    : QThread(parent)
    , m_plugin(plugin)
{
    connect(plugin, SIGNAL(udpPacketArrived(quint16, quint16, quint16)), this,
            SLOT(handleAck(quint16, quint16, quint16)));
}

qconnectfirmware::~qconnectfirmware()
{
    stop();
}

void qconnectfirmware::stop()
{
    {
        const QMutexLocker locker(&m_taskMutex);
        m_stopped = true;
        m_abortRequested = true;
        m_ackCondition.wakeOne();
    }
    wait();
}

void qconnectfirmware::queue(const FirmwareDesc &task, QThread::Priority priority)
{
    const QMutexLocker locker(&m_taskMutex);
    if (m_stopped)
        return;
    m_tasks.append(task);
    m_transferStatus = 0;
    m_abortRequested = false;
    // A thread that has decided to leave still counts as running for a moment, and start() would do nothing.
    // It takes no lock any more, so it can be waited for with the mutex held.
    if (m_leaving) {
        wait();
        m_leaving = false;
    }
    start(priority);
}

void qconnectfirmware::sendZeltaFirmware(const QString &path)
{
    queue({path, QString(), zelta::ZeltaFirmwareTask, noSlot}, NormalPriority);
}

void qconnectfirmware::sendTriggerFirmware(const QString &path)
{
    queue({path, QString(), zelta::TriggerFirmwareTask, noSlot}, NormalPriority);
}

void qconnectfirmware::sendSoundBank(const QString &path)
{
    // The largest files by far: nothing else on the board should hold their packets up.
    queue({path, QString(), zelta::SoundBankTask, noSlot}, TimeCriticalPriority);
}

void qconnectfirmware::sendTriggerBank(const QString &path)
{
    queue({path, QString(), zelta::TriggerBankTask, noSlot}, NormalPriority);
}

void qconnectfirmware::sendImportSoundBank(const QString &path, const QString &name, int slot)
{
    queue({path, name, zelta::ImportSoundBankTask, slot}, NormalPriority);
}

void qconnectfirmware::sendImportWaveSample(const QString &path, int slot)
{
    queue({path, QString(), zelta::ImportWaveSampleTask, slot}, NormalPriority);
}

void qconnectfirmware::sendBtFirmware(const QString &path)
{
    queue({path, QString(), zelta::BtFirmwareTask, getBtFwSlotId(path)}, NormalPriority);
}

void qconnectfirmware::requestSoundBankVersion()
{
    queue({QString(), QString(), zelta::SoundBankVersionTask, noSlot}, NormalPriority);
}

void qconnectfirmware::requestTriggerBankVersion()
{
    queue({QString(), QString(), zelta::TriggerBankVersionTask, noSlot}, NormalPriority);
}

void qconnectfirmware::requestHHRawValue()
{
    queue({QString(), QString(), zelta::HihatRawValueTask, noSlot}, NormalPriority);
}

void qconnectfirmware::pushLogLine(const QString & /*line*/) {}

void qconnectfirmware::writeLogToFile(const QString & /*path*/) const {}
