#pragma once

#include "controllers/devicecontroller.h"

/// Selects the engine's program.
class qconnectprogram : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    /// Sends a program change, always on MIDI channel 10.
    void setNewProgram(quint8 program);
};
