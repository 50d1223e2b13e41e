#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Pad equaliser

void QConnectQmlPlugin::setPadEqActive(uchar note, bool active)
{
    m_padEq.setPadEqActive(active, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqLowFreq(uchar note, uint frequency)
{
    m_padEq.setPadEqLowFreq(frequency, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqLowGain(uchar note, int gain)
{
    m_padEq.setPadEqLowGain(gain, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqHighFreq(uchar note, uint frequency)
{
    m_padEq.setPadEqHighFreq(frequency, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqHighGain(uchar note, int gain)
{
    m_padEq.setPadEqHighGain(gain, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqMid1Freq(uchar note, uint frequency)
{
    m_padEq.setPadEqMidFreq(frequency, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqMid1Gain(uchar note, int gain)
{
    m_padEq.setPadEqMidGain(gain, note, parameterChannel);
}

void QConnectQmlPlugin::setPadEqMid1Q(uchar note, double q)
{
    m_padEq.setPadEqMidQ(q, note, parameterChannel);
}

// Master equaliser

void QConnectQmlPlugin::setMasterEqActive(bool active)
{
    m_masterEq.setMasterEqActive(active, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqLowFreq(uint frequency)
{
    m_masterEq.setMasterEqLowFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqLowGain(int gain)
{
    m_masterEq.setMasterEqLowGain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid1Freq(uint frequency)
{
    m_masterEq.setMasterEqMid1Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid1Gain(int gain)
{
    m_masterEq.setMasterEqMid1Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid1Q(double q)
{
    m_masterEq.setMasterEqMid1Q(q, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid2Freq(uint frequency)
{
    m_masterEq.setMasterEqMid2Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid2Gain(int gain)
{
    m_masterEq.setMasterEqMid2Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqMid2Q(double q)
{
    m_masterEq.setMasterEqMid2Q(q, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqHighFreq(uint frequency)
{
    m_masterEq.setMasterEqHighFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMasterEqHighGain(int gain)
{
    m_masterEq.setMasterEqHighGain(gain, parameterChannel);
}

// Headphone equaliser

void QConnectQmlPlugin::setHeadEqActive(bool active)
{
    m_headEq.setHeadEqActive(active, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqLowFreq(uint frequency)
{
    m_headEq.setHeadEqLowFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqLowGain(int gain)
{
    m_headEq.setHeadEqLowGain(gain, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid1Freq(uint frequency)
{
    m_headEq.setHeadEqMid1Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid1Gain(int gain)
{
    m_headEq.setHeadEqMid1Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid1Q(double q)
{
    m_headEq.setHeadEqMid1Q(q, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid2Freq(uint frequency)
{
    m_headEq.setHeadEqMid2Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid2Gain(int gain)
{
    m_headEq.setHeadEqMid2Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqMid2Q(double q)
{
    m_headEq.setHeadEqMid2Q(q, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqHighFreq(uint frequency)
{
    m_headEq.setHeadEqHighFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setHeadEqHighGain(int gain)
{
    m_headEq.setHeadEqHighGain(gain, parameterChannel);
}

// Monitor equaliser

void QConnectQmlPlugin::setMonitorEqActive(bool active)
{
    m_monitorEq.setMonitorEqActive(active, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqLowFreq(uint frequency)
{
    m_monitorEq.setMonitorEqLowFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqLowGain(int gain)
{
    m_monitorEq.setMonitorEqLowGain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid1Freq(uint frequency)
{
    m_monitorEq.setMonitorEqMid1Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid1Gain(int gain)
{
    m_monitorEq.setMonitorEqMid1Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid1Q(double q)
{
    m_monitorEq.setMonitorEqMid1Q(q, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid2Freq(uint frequency)
{
    m_monitorEq.setMonitorEqMid2Freq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid2Gain(int gain)
{
    m_monitorEq.setMonitorEqMid2Gain(gain, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqMid2Q(double q)
{
    m_monitorEq.setMonitorEqMid2Q(q, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqHighFreq(uint frequency)
{
    m_monitorEq.setMonitorEqHighFreq(frequency, parameterChannel);
}

void QConnectQmlPlugin::setMonitorEqHighGain(int gain)
{
    m_monitorEq.setMonitorEqHighGain(gain, parameterChannel);
}
