#include "controllers/qconnectmetronome.h"

#include "controllers/encodings.h"
#include "link/parameterpages.h"

// Click sound, level and routing have the parameter numbers of the pad with note 1.

void qconnectmetronome::setMetronomeClickSoundSelection(quint8 value, quint8 channel)
{
    sendParameter({0x17, 0x01}, value, channel);
}

void qconnectmetronome::setMetronomeClickLevel(quint8 value, quint8 channel)
{
    sendParameter({0x1A, 0x01}, value, channel);
}

void qconnectmetronome::setMetronomeTempo(quint16 bpm, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x64}, zelta::tempoEntry(bpm), channel);
}

void qconnectmetronome::setMetronomeTimeSignatureNum(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x65}, value, channel);
}

void qconnectmetronome::setMetronomeTimeSignatureDen(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x66}, value, channel);
}

void qconnectmetronome::setMetronomeInterval(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x67}, value, channel);
}

void qconnectmetronome::setMetronomeAccent(bool on, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x68}, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeTap(bool on, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x6A}, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeTapNote1(quint8 note, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x6B}, note, channel);
}

void qconnectmetronome::setMetronomeTapNote2(quint8 note, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x6C}, note, channel);
}

void qconnectmetronome::setMetronomeActive(bool on, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x63}, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeClickRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter({0x0F, 0x01}, zelta::DataEntry{mb, lb}, channel);
}
