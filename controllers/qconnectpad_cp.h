#pragma once

#include "controllers/devicecontroller.h"

/// Compressor of each pad. Pads are addressed by their MIDI note.
class qconnectpad_cp : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setPadCpActive(bool active, quint8 note, quint8 channel);
    void setPadCpAttackTime(quint8 value, quint8 note, quint8 channel);
    void setPadCpReleaseTime(quint8 value, quint8 note, quint8 channel);
    void setPadCpThreshold(quint8 value, quint8 note, quint8 channel);
    void setPadCpRatio(quint8 value, quint8 note, quint8 channel);
    void setPadCpBoost(quint8 value, quint8 note, quint8 channel);
    void setPadCpKnee(quint8 value, quint8 note, quint8 channel);
    /// Requests one report of the pad's meters.
    void requestLevelUpdate(quint8 note, quint8 channel);
};
