#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

void QConnectQmlPlugin::setMetronomeClick(uchar tone)
{
    m_metronome.setMetronomeClickSoundSelection(tone, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeClickLevel(uchar level)
{
    m_metronome.setMetronomeClickLevel(level, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTempo(ushort tempo)
{
    m_metronome.setMetronomeTempo(tempo, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTimeSignatureNum(uchar numerator)
{
    m_metronome.setMetronomeTimeSignatureNum(numerator, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTimeSignatureDen(uchar denominator)
{
    m_metronome.setMetronomeTimeSignatureDen(denominator, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeInterval(uchar interval)
{
    m_metronome.setMetronomeInterval(interval, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeActive(bool active)
{
    m_metronome.setMetronomeActive(active, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTap(bool tap)
{
    m_metronome.setMetronomeTap(tap, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeClickRouting(uchar mb, uchar lb)
{
    m_metronome.setMetronomeClickRouting(mb, lb, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTapNote1(uchar note)
{
    m_metronome.setMetronomeTapNote1(note, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeTapNote2(uchar note)
{
    m_metronome.setMetronomeTapNote2(note, parameterChannel);
}

void QConnectQmlPlugin::setMetronomeAccent(bool accent)
{
    m_metronome.setMetronomeAccent(accent, parameterChannel);
}
