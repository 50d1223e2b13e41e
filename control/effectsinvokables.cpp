#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Ambience

void QConnectQmlPlugin::setAmbienceLevel(uchar level)
{
    m_effects.setAmbienceLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setAmbiencePreDelay(uchar preDelay)
{
    m_effects.setAmbiencePreDelay(preDelay, parameterChannel);
}

void QConnectQmlPlugin::setAmbienceActive(bool active)
{
    m_effects.setAmbienceActive(active, parameterChannel);
}

// Instrument reverb

void QConnectQmlPlugin::setInstrumentReverbLevel(uchar level)
{
    m_effects.setInstReverbLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbPreDelay(uchar preDelay)
{
    m_effects.setInstReverbPreDelay(preDelay, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbTime(uchar reverbTime)
{
    m_effects.setInstReverbTime(reverbTime, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbPreHighPass(uchar preHighPass)
{
    m_effects.setInstReverbPreHighPass(preHighPass, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbHighShelf(uchar highShelf)
{
    m_effects.setInstReverbHighShelf(highShelf, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbHighDamp(uchar highDamp)
{
    m_effects.setInstReverbHighDamp(highDamp, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbGatedReverbThreshold(uchar threshold)
{
    m_effects.setInstReverbGatedReverbThreshold(threshold, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbType(uchar reverbType)
{
    m_effects.setInstReverbType(reverbType, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbSendToRoom(uchar send)
{
    m_effects.setInstReverbSendToRoom(send, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentReverbActive(uint active)
{
    m_effects.setInstReverbActive(active != 0, parameterChannel);
}

// Room reverb

void QConnectQmlPlugin::setRoomReverbLevel(uchar level)
{
    m_effects.setRoomReverbLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbPreDelay(uchar preDelay)
{
    m_effects.setRoomReverbPreDelay(preDelay, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbTime(uchar reverbTime)
{
    m_effects.setRoomReverbTime(reverbTime, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbPreHighPass(uchar preHighPass)
{
    m_effects.setRoomReverbPreHighPass(preHighPass, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbHighShelf(uchar highShelf)
{
    m_effects.setRoomReverbHighShelf(highShelf, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbHighDamp(uchar highDamp)
{
    m_effects.setRoomReverbHighDamp(highDamp, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbType(uchar reverbType)
{
    m_effects.setRoomReverbType(reverbType, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbActive(bool active)
{
    m_effects.setRoomReverbActive(active, parameterChannel);
}

// Multi-effect

void QConnectQmlPlugin::setMultiFxLevel(uchar level)
{
    m_effects.setMultiFxLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxType(uchar type)
{
    m_effects.setMultiFxType(type, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxActive(uint active)
{
    m_effects.setMultiFxActive(active != 0, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxSendToRoom(uchar send)
{
    m_effects.setMultiFxSendToRoom(send, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxParam0(double param0, double min, double max, int type)
{
    m_effects.setMultiFxParam0(param0, min, max, type, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxParam1(double param1, double min, double max, int type)
{
    m_effects.setMultiFxParam1(param1, min, max, type, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxParam2(double param2, double min, double max, int type)
{
    m_effects.setMultiFxParam2(param2, min, max, type, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxParam3(double param3, double min, double max, int type)
{
    m_effects.setMultiFxParam3(param3, min, max, type, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxParam4(double param4, double min, double max, int type)
{
    m_effects.setMultiFxParam4(param4, min, max, type, parameterChannel);
}

// Effect routing

void QConnectQmlPlugin::setInstReverbRouting(uchar mb, uchar lb)
{
    m_effects.setInstReverbRouting(mb, lb, parameterChannel);
}

void QConnectQmlPlugin::setRoomReverbRouting(uchar mb, uchar lb)
{
    m_effects.setRoomReverbRouting(mb, lb, parameterChannel);
}

void QConnectQmlPlugin::setMultiFxRouting(uchar mb, uchar lb)
{
    m_effects.setMultiFxRouting(mb, lb, parameterChannel);
}
