#include "controllers/qconnectpad_eq.h"

#include "controllers/encodings.h"

void qconnectpad_eq::setPadEqActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({0x20, note}, zelta::onOff(active), channel);
}

void qconnectpad_eq::setPadEqLowGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({0x21, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqMidGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({0x22, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqHighGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({0x23, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqLowFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({0x24, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqMidFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({0x25, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqHighFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({0x26, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqMidQ(double q, quint8 note, quint8 channel)
{
    sendParameter({0x27, note}, zelta::qValue(q), channel);
}
