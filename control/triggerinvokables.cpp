#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Trigger settings

void QConnectQmlPlugin::sendTriggerBankPreset(uchar note, uchar preset)
{
    m_trigger.setTriggerBankPreset(preset, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerGain(uchar note, uchar gain)
{
    m_trigger.setTriggerGain(gain, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerThreshold(uchar note, uchar threshold)
{
    m_trigger.setTriggerThreshold(threshold, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerXTalk(uchar note, uchar xtalk)
{
    m_trigger.setTriggerXTalk(xtalk, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerHighLevel(uchar note, uchar highLevel)
{
    m_trigger.setTriggerHighLevel(highLevel, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerHHLowPosition(uchar note, uchar hhLowPosition)
{
    m_trigger.setTriggerHHLowPosition(hhLowPosition, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerHHHighPosition(uchar note, uchar hhHighPosition)
{
    m_trigger.setTriggerHHHighPosition(hhHighPosition, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerHHChickSensitivity(uchar note, uchar hhChickSensitivity)
{
    m_trigger.setTriggerHHChickSensitivity(hhChickSensitivity, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerHHSplashSensitivity(uchar note, uchar hhSplashSensitivity)
{
    m_trigger.setTriggerHHSplashSensitivity(hhSplashSensitivity, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerScanTime(uchar note, uchar scanTime)
{
    m_trigger.setTriggerScanTime(scanTime, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerRetriggerMask(uchar note, uchar retriggerMask)
{
    m_trigger.setTriggerRetriggerMask(retriggerMask, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerTriggerType(uchar note, uchar triggerType)
{
    m_trigger.setTriggerTriggerType(triggerType, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerPositionalSensing(uchar note, uchar active)
{
    m_trigger.setTriggerPositionalSensing(active, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerCurvePreset(uchar note, uchar curvePreset)
{
    m_trigger.setTriggerCurvePreset(curvePreset, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerDynLevel(uchar note, uchar dynLevel)
{
    m_trigger.setTriggerDynLevel(dynLevel, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerDynTime(uchar note, uchar dynTime)
{
    m_trigger.setTriggerDynTime(dynTime, note, parameterChannel);
}

void QConnectQmlPlugin::sendTriggerCurveData(uint curvePreset, const QVector<int> &curveData)
{
    m_trigger.sendTriggerCurvePacket(curvePreset, curveData);
}

void QConnectQmlPlugin::sendTriggerTransferEnd(uchar note)
{
    m_trigger.sendTriggerTransferEnd(note, parameterChannel);
}
