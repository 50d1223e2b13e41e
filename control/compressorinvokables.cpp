#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Pad compressor

void QConnectQmlPlugin::setPadCpActive(bool active, uchar note)
{
    m_padCp.setPadCpActive(active, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpAttackTime(uchar value, uchar note)
{
    m_padCp.setPadCpAttackTime(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpReleaseTime(uchar value, uchar note)
{
    m_padCp.setPadCpReleaseTime(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpThreshold(uchar value, uchar note)
{
    m_padCp.setPadCpThreshold(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpRatio(uchar value, uchar note)
{
    m_padCp.setPadCpRatio(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpBoost(uchar value, uchar note)
{
    m_padCp.setPadCpBoost(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadCpKnee(uchar value, uchar note)
{
    m_padCp.setPadCpKnee(value, note, parameterChannel);
}

void QConnectQmlPlugin::requestPadUpdate(uchar note)
{
    m_padCp.requestLevelUpdate(note, parameterChannel);
}

// Master compressor

void QConnectQmlPlugin::setMasterCpActive(bool active)
{
    m_masterCp.setMasterCpActive(active, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpAttackTime(uchar attackTime)
{
    m_masterCp.setMasterCpAttackTime(attackTime, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpReleaseTime(uchar releaseTime)
{
    m_masterCp.setMasterCpReleaseTime(releaseTime, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpThreshold(uchar threshold)
{
    m_masterCp.setMasterCpThreshold(threshold, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpRatio(uchar ratio)
{
    m_masterCp.setMasterCpRatio(ratio, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpBoost(uchar boost)
{
    m_masterCp.setMasterCpBoost(boost, parameterChannel);
}

void QConnectQmlPlugin::setMasterCpKnee(uchar knee)
{
    m_masterCp.setMasterCpKnee(knee, parameterChannel);
}

// Headphone compressor

void QConnectQmlPlugin::setHeadCpActive(bool active)
{
    m_headCp.setHeadCpActive(active, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpAttackTime(uchar attackTime)
{
    m_headCp.setHeadCpAttackTime(attackTime, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpReleaseTime(uchar releaseTime)
{
    m_headCp.setHeadCpReleaseTime(releaseTime, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpThreshold(uchar threshold)
{
    m_headCp.setHeadCpThreshold(threshold, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpRatio(uchar ratio)
{
    m_headCp.setHeadCpRatio(ratio, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpBoost(uchar boost)
{
    m_headCp.setHeadCpBoost(boost, parameterChannel);
}

void QConnectQmlPlugin::setHeadCpKnee(uchar knee)
{
    m_headCp.setHeadCpKnee(knee, parameterChannel);
}

// Monitor compressor

void QConnectQmlPlugin::setMonitorCpActive(bool active)
{
    m_monitorCp.setMonitorCpActive(active, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpAttackTime(uchar attackTime)
{
    m_monitorCp.setMonitorCpAttackTime(attackTime, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpReleaseTime(uchar releaseTime)
{
    m_monitorCp.setMonitorCpReleaseTime(releaseTime, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpThreshold(uchar threshold)
{
    m_monitorCp.setMonitorCpThreshold(threshold, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpRatio(uchar ratio)
{
    m_monitorCp.setMonitorCpRatio(ratio, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpBoost(uchar boost)
{
    m_monitorCp.setMonitorCpBoost(boost, parameterChannel);
}

void QConnectQmlPlugin::setMonitorCpKnee(uchar knee)
{
    m_monitorCp.setMonitorCpKnee(knee, parameterChannel);
}

// Compressor meters

void QConnectQmlPlugin::requestMasterCpUpdate()
{
    m_masterCp.requestLevelUpdate(parameterChannel);
}

void QConnectQmlPlugin::requestHeadCpUpdate()
{
    m_headCp.requestLevelUpdate(parameterChannel);
}

void QConnectQmlPlugin::requestMonitorCpUpdate()
{
    m_monitorCp.requestLevelUpdate(parameterChannel);
}
