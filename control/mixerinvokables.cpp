#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

void QConnectQmlPlugin::setSnareStyle(uchar style)
{
    m_volume.setSnareStyle(style, parameterChannel);
}

void QConnectQmlPlugin::setXFadeBalance(uchar balance)
{
    m_volume.setXFadeBalance(balance, parameterChannel);
}

void QConnectQmlPlugin::setMixInLevel(uchar level)
{
    m_volume.setMixInLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setSynthMasterLevel(uchar level)
{
    m_volume.setSynthMasterLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setMasterOutBalance(uchar balance)
{
    m_volume.setMasterOutBalance(balance, parameterChannel);
}

void QConnectQmlPlugin::setMasterOutLevel(uchar level)
{
    m_volume.setMasterOutLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setMonitorOutBalance(uchar balance)
{
    m_volume.setMonitorOutBalance(balance, parameterChannel);
}

void QConnectQmlPlugin::setMonitorOutLevel(uchar level)
{
    m_volume.setMonitorOutLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setHeadphoneOutBalance(uchar balance)
{
    m_volume.setHeadphoneOutBalance(balance, parameterChannel);
}

void QConnectQmlPlugin::setHeadphoneOutLevel(uchar level)
{
    m_volume.setHeadphoneOutLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setSongLevel(uchar level)
{
    m_volume.setSongLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setPlaybackRouting(uchar mb, uchar lb)
{
    m_volume.setPlaybackRouting(mb, lb, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut1Level(uchar level)
{
    m_volume.setDirectOut1Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut2Level(uchar level)
{
    m_volume.setDirectOut2Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut3Level(uchar level)
{
    m_volume.setDirectOut3Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut4Level(uchar level)
{
    m_volume.setDirectOut4Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut5Level(uchar level)
{
    m_volume.setDirectOut5Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut6Level(uchar level)
{
    m_volume.setDirectOut6Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut7Level(uchar level)
{
    m_volume.setDirectOut7Level(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOut8Level(uchar level)
{
    m_volume.setDirectOut8Level(level, parameterChannel);
}

void QConnectQmlPlugin::setSpdifOutLevel(uchar level)
{
    m_volume.setSpdifOutLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setUsbInLevel(uchar level)
{
    m_volume.setUsbInLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setDirectOutMode(uchar index, uchar mode)
{
    m_volume.setDirectOutMode(index, mode, parameterChannel);
}

void QConnectQmlPlugin::requestOutsUpdate()
{
    m_volume.requestOutsUpdate(parameterChannel);
}

void QConnectQmlPlugin::setDrumKitVolume(uchar level)
{
    m_volume.setDrumKitVolume(level, parameterChannel);
}
