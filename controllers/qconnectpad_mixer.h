#pragma once

#include "controllers/devicecontroller.h"

/// Level, panning and effect sends of each pad. Pads are addressed by their MIDI note.
class qconnectpad_mixer : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setPadMixerVolume(quint8 value, quint8 note, quint8 channel);
    void setPadMixerAmbience(quint8 value, quint8 note, quint8 channel);
    /// Panning, 0 to 127; 1 is sent as 0.
    void setPadMixerPanning(quint8 value, quint8 note, quint8 channel);
    void setPadMixerRoomReverb(quint8 value, quint8 note, quint8 channel);
    void setPadMixerInstrumentReverb(quint8 value, quint8 note, quint8 channel);
    void setPadMixerMultiFX(quint8 value, quint8 note, quint8 channel);
    /// Direct routing to the multi-effect; mb is the high byte and lb the low byte.
    void setPadMixerMultiFXDirect(quint8 mb, quint8 lb, quint8 note, quint8 channel);
};
