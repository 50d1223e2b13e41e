#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Direct MIDI

void QConnectQmlPlugin::sendMidiNote(uchar tone, uchar velocity)
{
    m_pad.sendMidiNote(tone, velocity, parameterChannel);
}

void QConnectQmlPlugin::sendDirectNrpn(uchar firstByte, uchar secondByte, uchar value)
{
    m_pad.sendNrpn(firstByte, secondByte, value, parameterChannel);
}

// Front panel and mix input

void QConnectQmlPlugin::setLedEnabled(int id, bool enable)
{
    m_led.enable(id, enable);
}

void QConnectQmlPlugin::setLedBrightness(uchar level)
{
    m_led.setBrightness(level, parameterChannel);
}

void QConnectQmlPlugin::sendMidiMixInputGain(uchar gain)
{
    m_pad.sendMidiMixInputGain(gain, parameterChannel);
}
