#include "controllers/qconnectpad_instrument.h"

#include "controllers/encodings.h"

namespace {

// The page selects the parameter, the pad's note is the second half of the number.
constexpr quint8 soundGroupPage = 0x16;
constexpr quint8 soundInstrPage = 0x17;
constexpr quint8 coarseTuningPage = 0x18;
constexpr quint8 fineTuningPage = 0x19;
constexpr quint8 volumePage = 0x1A;
constexpr quint8 secondCoarseTuningPage = 0x08;
constexpr quint8 secondFineTuningPage = 0x09;

} // namespace

void qconnectpad_instrument::setSoundGroup(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({soundGroupPage, note}, value, channel);
}

void qconnectpad_instrument::setSoundInstr(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({soundInstrPage, note}, value, channel);
}

void qconnectpad_instrument::setInstrumentCoarseTuning(signed char tuning, quint8 note, quint8 channel)
{
    sendParameter({coarseTuningPage, note}, zelta::coarseTuning(tuning), channel);
}

void qconnectpad_instrument::setInstrumentFineTuning(quint8 tuning, quint8 note, quint8 channel)
{
    sendParameter({fineTuningPage, note}, tuning, channel);
}

void qconnectpad_instrument::setInstrumentVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({volumePage, note}, value, channel);
}

void qconnectpad_instrument::setInstrumentSecondCoarseTuning(signed char tuning, quint8 note, quint8 channel)
{
    sendParameter({secondCoarseTuningPage, note}, zelta::coarseTuning(tuning), channel);
}

void qconnectpad_instrument::setInstrumentSecondFineTuning(quint8 tuning, quint8 note, quint8 channel)
{
    sendParameter({secondFineTuningPage, note}, tuning, channel);
}
