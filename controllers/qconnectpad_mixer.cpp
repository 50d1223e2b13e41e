#include "controllers/qconnectpad_mixer.h"

#include "controllers/encodings.h"

namespace {

// The page selects the parameter, the pad's note is the second half of the number.
constexpr quint8 volumePage = 0x07;
constexpr quint8 ambiencePage = 0x1B;
constexpr quint8 panningPage = 0x1C;
constexpr quint8 roomReverbPage = 0x1D;
constexpr quint8 instrumentReverbPage = 0x1E;
constexpr quint8 multiFxPage = 0x1F;
constexpr quint8 multiFxDirectPage = 0x0F;

} // namespace

void qconnectpad_mixer::setPadMixerVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({volumePage, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerAmbience(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({ambiencePage, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerPanning(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({panningPage, note}, zelta::positionWithoutOne(value), channel);
}

void qconnectpad_mixer::setPadMixerRoomReverb(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({roomReverbPage, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerInstrumentReverb(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({instrumentReverbPage, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerMultiFX(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({multiFxPage, note}, value, channel);
}

void qconnectpad_mixer::setPadMixerMultiFXDirect(quint8 mb, quint8 lb, quint8 note, quint8 channel)
{
    sendParameter({multiFxDirectPage, note}, zelta::DataEntry{mb, lb}, channel);
}
