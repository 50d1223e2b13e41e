#include "transfer/qconnectfirmware.h"

namespace {

// Major without padding, minor with two digits at least: 0x00010005 is "V 1.05".
QString majorMinorText(int version)
{
    return QStringLiteral("V %1.%2").arg(version >> 16).arg(version & 0xFFFF, 2, 10, QLatin1Char('0'));
}

// The whole word as one number: 0x00010005 is "V 65541".
QString wholeNumberText(int version)
{
    return QStringLiteral("V %1").arg(version);
}

} // namespace

QString qconnectfirmware::getZeltaVersion() const
{
    return majorMinorText(m_zeltaVersion);
}

QString qconnectfirmware::getTriggerBoardVersion() const
{
    return wholeNumberText(m_triggerBoardVersion);
}

QString qconnectfirmware::getSoundBankVersion() const
{
    return majorMinorText(m_soundBankVersion);
}

QString qconnectfirmware::getTriggerBankVersion() const
{
    return wholeNumberText(m_triggerBankVersion);
}

int qconnectfirmware::searchZeltaFwVersionInfo(const QString &path)
{
    return zelta::zeltaFirmwareVersion(path);
}

int qconnectfirmware::searchTriggerFwVersionInfo(const QString &path)
{
    return zelta::triggerFirmwareVersion(path);
}
