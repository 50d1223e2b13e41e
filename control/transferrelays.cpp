#include "control/qconnectqmlplugin.h"

// Signals of the transfer engine, emitted again for QML in the GUI thread.

void QConnectQmlPlugin::updateSoundTransferProgress(qreal progress)
{
    m_state.soundBankProgress = progress;
    Q_EMIT soundProgressChanged();
}

void QConnectQmlPlugin::updateTriggerTransferProgress(qreal progress)
{
    m_state.triggerBankProgress = progress;
    Q_EMIT triggerProgressChanged();
}

void QConnectQmlPlugin::updateBtFwTransferProgress(qreal progress)
{
    m_state.btfwProgress = progress;
    Q_EMIT btfwProgressChanged();
}

void QConnectQmlPlugin::updateImportSlotProgress(int slot, qreal progress)
{
    Q_EMIT waveTransferProgress(slot, progress);
}

void QConnectQmlPlugin::updateImportSlotComplete(int slot, quint16 complete)
{
    Q_EMIT waveTransferComplete(slot, complete);
}

void QConnectQmlPlugin::updateImportSBComplete(quint16 complete, quint32 retransmitCount)
{
    Q_EMIT soundbankTransferComplete(complete, retransmitCount);
}

void QConnectQmlPlugin::updateImportTBComplete(quint16 complete)
{
    Q_EMIT triggerbankTransferComplete(complete);
}

void QConnectQmlPlugin::updateImportBTComplete(quint16 complete)
{
    Q_EMIT bluetoothTransferComplete(complete);
}

void QConnectQmlPlugin::zeltaFwUpdated()
{
    Q_EMIT updateZeltaFwComplete();
}

void QConnectQmlPlugin::internalFwUpdateStarted()
{
    Q_EMIT intFwUpdateStarted();
}

void QConnectQmlPlugin::internalFwUpdateFinished()
{
    Q_EMIT intFwUpdateFinished();
}

void QConnectQmlPlugin::internalZeltaFirmwareUpdateStarted(int currentVersion, int newVersion)
{
    Q_EMIT intZeltaFirmwareUpdateStarted(currentVersion, newVersion);
}

void QConnectQmlPlugin::internalTriggerFirmwareUpdateStarted(int currentVersion, int newVersion)
{
    Q_EMIT intTriggerFirmwareUpdateStarted(currentVersion, newVersion);
}

void QConnectQmlPlugin::internalZeltaFirmwareUpdateFinished()
{
    Q_EMIT intZeltaFirmwareUpdateFinished();
}

void QConnectQmlPlugin::internalTriggerFirmwareUpdateFinished()
{
    Q_EMIT intTriggerFirmwareUpdateFinished();
}
