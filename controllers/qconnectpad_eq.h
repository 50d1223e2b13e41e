#pragma once

#include "controllers/devicecontroller.h"

/// Equaliser of each pad, three bands. Pads are addressed by their MIDI note. Gain, in dB, is limited to
/// -15...15 and Q to 0.1...8. A frequency of 0...16383 is sent exactly.
class qconnectpad_eq : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setPadEqActive(bool active, quint8 note, quint8 channel);
    void setPadEqLowGain(int gain, quint8 note, quint8 channel);
    void setPadEqMidGain(int gain, quint8 note, quint8 channel);
    void setPadEqHighGain(int gain, quint8 note, quint8 channel);
    void setPadEqLowFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqMidFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqHighFreq(quint32 frequency, quint8 note, quint8 channel);
    void setPadEqMidQ(double q, quint8 note, quint8 channel);
};
