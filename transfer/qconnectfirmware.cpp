#include "transfer/qconnectfirmware.h"

qconnectfirmware::qconnectfirmware(QConnectQmlPlugin *plugin, QObject *parent)
    : QThread(parent)
    , m_plugin(plugin)
{}

qconnectfirmware::~qconnectfirmware() = default;

void qconnectfirmware::stop() {}

void qconnectfirmware::sendZeltaFirmware(const QString & /*path*/) {}

void qconnectfirmware::sendTriggerFirmware(const QString & /*path*/) {}

void qconnectfirmware::sendSoundBank(const QString & /*path*/) {}

void qconnectfirmware::sendTriggerBank(const QString & /*path*/) {}

void qconnectfirmware::sendImportSoundBank(const QString & /*path*/, const QString & /*name*/, int /*slot*/)
{}

void qconnectfirmware::sendImportWaveSample(const QString & /*path*/, int /*slot*/) {}

void qconnectfirmware::sendBtFirmware(const QString & /*path*/) {}

void qconnectfirmware::requestSoundBankVersion() {}

void qconnectfirmware::requestTriggerBankVersion() {}

void qconnectfirmware::requestHHRawValue() {}

QString qconnectfirmware::getZeltaVersion() const
{
    return {};
}

QString qconnectfirmware::getTriggerBoardVersion() const
{
    return {};
}

QString qconnectfirmware::getSoundBankVersion() const
{
    return {};
}

QString qconnectfirmware::getTriggerBankVersion() const
{
    return {};
}

QString qconnectfirmware::parseJsonFile(const QString & /*path*/)
{
    return {};
}

QJsonObject qconnectfirmware::parseSoundBankList(const QString & /*path*/)
{
    return {};
}

QJsonObject qconnectfirmware::parseTriggerBankList(const QString & /*path*/)
{
    return {};
}

int qconnectfirmware::backupSoundBankList(const QString & /*path*/)
{
    return {};
}

int qconnectfirmware::backupTriggerBankList(const QString & /*path*/)
{
    return {};
}

void qconnectfirmware::deleteIsSlot(quint8 /*slot*/, quint8 /*channel*/) {}

void qconnectfirmware::deleteIwSlot(quint8 /*slot*/, quint8 /*channel*/) {}

void qconnectfirmware::deleteAllSlots(quint8 /*channel*/) {}

void qconnectfirmware::requestIsSlotInfo(quint8 /*slot*/, quint8 /*channel*/) {}

void qconnectfirmware::requestIwSlotInfo(quint8 /*slot*/, quint8 /*channel*/) {}

void qconnectfirmware::requestMemInfo(quint8 /*channel*/) {}

void qconnectfirmware::deepErase(quint8 /*channel*/) {}

int qconnectfirmware::checkBtFirmware(const QStringList & /*files*/)
{
    return {};
}

void qconnectfirmware::handleAck(quint16 /*id*/, quint16 /*a*/, quint16 /*b*/) {}
