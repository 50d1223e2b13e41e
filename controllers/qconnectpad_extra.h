#pragma once

#include "controllers/parametercontroller.h"

/// Envelope, second sound and external MIDI note of each pad. Pads are addressed by their MIDI note.
class qconnectpad_extra : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setPadExtraAttackTime(quint8 value, quint8 note, quint8 channel);
    void setPadExtraEnvelopeReleaseTime(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundActive(bool active, quint8 note, quint8 channel);
    void setPadExtraSecondSoundVolume(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundAttack(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundRelease(quint8 value, quint8 note, quint8 channel);
    void setPadMidiNote(quint8 extNote, quint8 note, quint8 channel);
    /// Selects the second sound by its number, which is too large for one parameter: its high and low seven
    /// bits go out as two parameters, high first, one datagram each.
    void setPadExtraSecondSoundSelect(quint32 value, quint8 note, quint8 channel);
    /// Sends nothing, on purpose; screens may call it freely.
    void setPadExtraCrossfeedBuzz(quint8 value, quint8 note, quint8 channel);
};
