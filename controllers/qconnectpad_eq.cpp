#include "controllers/qconnectpad_eq.h"

#include "controllers/encodings.h"

namespace {

// The page selects the parameter, the pad's note is the second half of the number.
constexpr quint8 activePage = 0x20;
constexpr quint8 lowGainPage = 0x21;
constexpr quint8 midGainPage = 0x22;
constexpr quint8 highGainPage = 0x23;
constexpr quint8 lowFreqPage = 0x24;
constexpr quint8 midFreqPage = 0x25;
constexpr quint8 highFreqPage = 0x26;
constexpr quint8 midQPage = 0x27;

} // namespace

void qconnectpad_eq::setPadEqActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({activePage, note}, zelta::onOff(active), channel);
}

void qconnectpad_eq::setPadEqLowGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({lowGainPage, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqMidGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({midGainPage, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqHighGain(int gain, quint8 note, quint8 channel)
{
    sendParameter({highGainPage, note}, zelta::gainValue(gain), channel);
}

void qconnectpad_eq::setPadEqLowFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({lowFreqPage, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqMidFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({midFreqPage, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqHighFreq(quint32 frequency, quint8 note, quint8 channel)
{
    sendParameter({highFreqPage, note}, zelta::fourteenBits(frequency), channel);
}

void qconnectpad_eq::setPadEqMidQ(double q, quint8 note, quint8 channel)
{
    sendParameter({midQPage, note}, zelta::qValue(q), channel);
}
