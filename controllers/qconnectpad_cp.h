#pragma once

#include "controllers/parametercontroller.h"

/// Compressor of each pad. Pads are addressed by their MIDI note.
class qconnectpad_cp : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setPadCpActive(bool active, quint8 note, quint8 channel);
    void setPadCpAttackTime(quint8 value, quint8 note, quint8 channel);
    void setPadCpReleaseTime(quint8 value, quint8 note, quint8 channel);
    void setPadCpThreshold(quint8 value, quint8 note, quint8 channel);
    void setPadCpRatio(quint8 value, quint8 note, quint8 channel);
    void setPadCpBoost(quint8 value, quint8 note, quint8 channel);
    void setPadCpKnee(quint8 value, quint8 note, quint8 channel);
    /// Asks for one report of the pad's meters.
    void requestLevelUpdate(quint8 note, quint8 channel);
};
