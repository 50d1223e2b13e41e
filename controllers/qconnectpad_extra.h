#pragma once

#include "controllers/devicecontroller.h"

/// Envelope, second sound and external MIDI note of each pad. Pads are addressed by their MIDI note.
class qconnectpad_extra : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setPadExtraAttackTime(quint8 value, quint8 note, quint8 channel);
    void setPadExtraEnvelopeReleaseTime(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundActive(bool active, quint8 note, quint8 channel);
    void setPadExtraSecondSoundVolume(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundAttack(quint8 value, quint8 note, quint8 channel);
    void setPadExtraSecondSoundRelease(quint8 value, quint8 note, quint8 channel);
    void setPadMidiNote(quint8 extNote, quint8 note, quint8 channel);
    /// Number of the second sound, 0 to 16383. Sends two parameters, one datagram each: the upper bits, then
    /// the low seven bits.
    void setPadExtraSecondSoundSelect(quint32 value, quint8 note, quint8 channel);
    /// Sends nothing. Screens may call it.
    void setPadExtraCrossfeedBuzz(quint8 value, quint8 note, quint8 channel);
};
