#include "controllers/qconnectpad_mixer.h"

#include "controllers/encodings.h"

void qconnectpad_mixer::setPadMixerVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x07, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerAmbience(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1B, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerPanning(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1C, note}, zelta::positionWithoutOne(value), channel);
}

void qconnectpad_mixer::setPadMixerRoomReverb(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1D, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerInstrumentReverb(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1E, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerMultiFX(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1F, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerMultiFXDirect(quint8 mb, quint8 lb, quint8 note, quint8 channel)
{
    sendParameter({0x0F, note}, zelta::DataEntry{mb, lb}, channel);
}
