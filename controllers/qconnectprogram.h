#pragma once

#include "controllers/parametercontroller.h"

/// Selects the engine's program (drum kit).
class qconnectprogram : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    /// Sends a program change on MIDI channel 10; the number goes out as given.
    void setNewProgram(quint8 program);
};
