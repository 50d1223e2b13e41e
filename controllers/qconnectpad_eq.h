#pragma once

#include "controllers/parametercontroller.h"

/// Equaliser of each pad, three bands. Pads are addressed by their MIDI note. Gain in dB (-15 to 15) and Q
/// (0.1 to 8) are limited; a frequency of up to 16383 is exact.
class qconnectpad_eq : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setPadEqActive(bool active, quint8 note, quint8 channel);
    void setPadEqLowGain(int gain, quint8 note, quint8 channel);
    void setPadEqMidGain(int gain, quint8 note, quint8 channel);
    void setPadEqHighGain(int gain, quint8 note, quint8 channel);
    void setPadEqLowFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqMidFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqHighFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqMidQ(double q, quint8 note, quint8 channel);
};
