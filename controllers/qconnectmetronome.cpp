#include "controllers/qconnectmetronome.h"

#include "controllers/encodings.h"
#include "link/parameterpages.h"

namespace {

// Click sound, level and routing are those of the pad with note 1.
constexpr zelta::NrpnNumber clickSound{0x17, 0x01};
constexpr zelta::NrpnNumber clickLevel{0x1A, 0x01};
constexpr zelta::NrpnNumber clickRouting{0x0F, 0x01};
constexpr zelta::NrpnNumber active{zelta::generalPage, 0x63};
constexpr zelta::NrpnNumber tempo{zelta::generalPage, 0x64};
constexpr zelta::NrpnNumber timeSignatureNum{zelta::generalPage, 0x65};
constexpr zelta::NrpnNumber timeSignatureDen{zelta::generalPage, 0x66};
constexpr zelta::NrpnNumber interval{zelta::generalPage, 0x67};
constexpr zelta::NrpnNumber accent{zelta::generalPage, 0x68};
constexpr zelta::NrpnNumber tap{zelta::generalPage, 0x6A};
constexpr zelta::NrpnNumber tapNote1{zelta::generalPage, 0x6B};
constexpr zelta::NrpnNumber tapNote2{zelta::generalPage, 0x6C};

} // namespace

void qconnectmetronome::setMetronomeClickSoundSelection(quint8 value, quint8 channel)
{
    sendParameter(clickSound, value, channel);
}

void qconnectmetronome::setMetronomeClickLevel(quint8 value, quint8 channel)
{
    sendParameter(clickLevel, value, channel);
}

void qconnectmetronome::setMetronomeTempo(quint16 bpm, quint8 channel)
{
    sendParameter(tempo, zelta::tempoEntry(bpm), channel);
}

void qconnectmetronome::setMetronomeTimeSignatureNum(quint8 value, quint8 channel)
{
    sendParameter(timeSignatureNum, value, channel);
}

void qconnectmetronome::setMetronomeTimeSignatureDen(quint8 value, quint8 channel)
{
    sendParameter(timeSignatureDen, value, channel);
}

void qconnectmetronome::setMetronomeInterval(quint8 value, quint8 channel)
{
    sendParameter(interval, value, channel);
}

void qconnectmetronome::setMetronomeAccent(bool on, quint8 channel)
{
    sendParameter(accent, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeTap(bool on, quint8 channel)
{
    sendParameter(tap, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeTapNote1(quint8 note, quint8 channel)
{
    sendParameter(tapNote1, note, channel);
}

void qconnectmetronome::setMetronomeTapNote2(quint8 note, quint8 channel)
{
    sendParameter(tapNote2, note, channel);
}

void qconnectmetronome::setMetronomeActive(bool on, quint8 channel)
{
    sendParameter(active, zelta::onOff(on), channel);
}

void qconnectmetronome::setMetronomeClickRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter(clickRouting, zelta::DataEntry{mb, lb}, channel);
}
