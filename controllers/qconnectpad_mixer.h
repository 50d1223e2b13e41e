#pragma once

#include "controllers/parametercontroller.h"

/// Level, panning and effect sends of each pad. Pads are addressed by their MIDI note.
class qconnectpad_mixer : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setPadMixerVolume(quint8 value, quint8 note, quint8 channel);
    void setPadMixerAmbience(quint8 value, quint8 note, quint8 channel);
    /// Panning, 0 (left) to 127 (right); 1 is the same position as 0.
    void setPadMixerPanning(quint8 value, quint8 note, quint8 channel);
    void setPadMixerRoomReverb(quint8 value, quint8 note, quint8 channel);
    void setPadMixerInstrumentReverb(quint8 value, quint8 note, quint8 channel);
    void setPadMixerMultiFX(quint8 value, quint8 note, quint8 channel);
    /// Routing word of the direct multi-effect path, high and low byte.
    void setPadMixerMultiFXDirect(quint8 mb, quint8 lb, quint8 note, quint8 channel);
};
