#include "controllers/qconnectpad_instrument.h"

#include "controllers/encodings.h"

void qconnectpad_instrument::setSoundGroup(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x16, note}, value, channel);
}

void qconnectpad_instrument::setSoundInstr(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x17, note}, value, channel);
}

void qconnectpad_instrument::setInstrumentCoarseTuning(signed char tuning, quint8 note, quint8 channel)
{
    sendParameter({0x18, note}, zelta::coarseTuning(tuning), channel);
}

void qconnectpad_instrument::setInstrumentFineTuning(quint8 tuning, quint8 note, quint8 channel)
{
    sendParameter({0x19, note}, tuning, channel);
}

void qconnectpad_instrument::setInstrumentVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x1A, note}, value, channel);
}

void qconnectpad_instrument::setInstrumentSecondCoarseTuning(signed char tuning, quint8 note, quint8 channel)
{
    sendParameter({0x08, note}, zelta::coarseTuning(tuning), channel);
}

void qconnectpad_instrument::setInstrumentSecondFineTuning(quint8 tuning, quint8 note, quint8 channel)
{
    sendParameter({0x09, note}, tuning, channel);
}
