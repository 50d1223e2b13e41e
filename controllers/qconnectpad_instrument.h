#pragma once

#include "controllers/devicecontroller.h"

/// Instrument of each pad, its tuning and volume. Pads are addressed by their MIDI note.
class qconnectpad_instrument : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setSoundGroup(quint8 value, quint8 note, quint8 channel);
    void setSoundInstr(quint8 value, quint8 note, quint8 channel);
    /// Coarse tuning in semitones, -64 to 63.
    void setInstrumentCoarseTuning(signed char tuning, quint8 note, quint8 channel);
    void setInstrumentFineTuning(quint8 tuning, quint8 note, quint8 channel);
    void setInstrumentVolume(quint8 value, quint8 note, quint8 channel);
    /// Coarse tuning of the second sound in semitones, -64 to 63.
    void setInstrumentSecondCoarseTuning(signed char tuning, quint8 note, quint8 channel);
    void setInstrumentSecondFineTuning(quint8 tuning, quint8 note, quint8 channel);
};
