#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Transfers and versions

void QConnectQmlPlugin::sendZeltaFirmware(const QString &fileName)
{
    m_firmware.sendZeltaFirmware(fileName);
}

void QConnectQmlPlugin::sendTriggerFirmware(const QString &fileName)
{
    m_firmware.sendTriggerFirmware(fileName);
}

void QConnectQmlPlugin::sendSoundBank(const QString &fileName)
{
    m_firmware.sendSoundBank(fileName);
}

void QConnectQmlPlugin::sendTriggerBank(const QString &fileName)
{
    m_firmware.sendTriggerBank(fileName);
}

void QConnectQmlPlugin::requestSoundBankVersion()
{
    m_firmware.requestSoundBankVersion();
}

void QConnectQmlPlugin::requestTriggerBankVersion()
{
    m_firmware.requestTriggerBankVersion();
}

void QConnectQmlPlugin::requestHHRawValue()
{
    m_firmware.requestHHRawValue();
}

// Catalogues

QString QConnectQmlPlugin::parseJsonFile(const QString &fileName)
{
    return m_firmware.parseJsonFile(fileName);
}

QJsonObject QConnectQmlPlugin::parseSoundBankList(const QString &fileName)
{
    return m_firmware.parseSoundBankList(fileName);
}

QJsonObject QConnectQmlPlugin::parseTriggerBankList(const QString &fileName)
{
    return m_firmware.parseTriggerBankList(fileName);
}

int QConnectQmlPlugin::backupSoundBankList(const QString &fileName)
{
    return m_firmware.backupSoundBankList(fileName);
}

int QConnectQmlPlugin::backupTriggerBankList(const QString &fileName)
{
    return m_firmware.backupTriggerBankList(fileName);
}

// Sample slots and imports

void QConnectQmlPlugin::sendImportSoundBank(const QString &fileName, const QString &slotId, int slot)
{
    m_firmware.sendImportSoundBank(fileName, slotId, slot);
}

void QConnectQmlPlugin::sendImportWaveSample(const QString &fileName, int slot)
{
    m_firmware.sendImportWaveSample(fileName, slot);
}

void QConnectQmlPlugin::deleteIsSlot(uchar slot)
{
    m_firmware.deleteIsSlot(slot, parameterChannel);
}

void QConnectQmlPlugin::deleteIwSlot(uchar slot)
{
    m_firmware.deleteIwSlot(slot, parameterChannel);
}

void QConnectQmlPlugin::deleteAllSlots()
{
    m_firmware.deleteAllSlots(parameterChannel);
}

void QConnectQmlPlugin::requestIsSlotInfo(uchar slot)
{
    m_firmware.requestIsSlotInfo(slot, parameterChannel);
}

void QConnectQmlPlugin::requestIwSlotInfo(uchar slot)
{
    m_firmware.requestIwSlotInfo(slot, parameterChannel);
}

void QConnectQmlPlugin::requestMemInfo()
{
    m_firmware.requestMemInfo(parameterChannel);
}

// Bluetooth firmware

void QConnectQmlPlugin::sendBtFw(const QString &fileName)
{
    m_firmware.sendBtFirmware(fileName);
}

int QConnectQmlPlugin::checkBtFw(const QStringList &fileNames)
{
    return m_firmware.checkBtFirmware(fileNames);
}

void QConnectQmlPlugin::deepErase()
{
    m_firmware.deepErase(parameterChannel);
}
