#pragma once

#include "controllers/parametercontroller.h"

/// Front-panel LEDs.
class qconnectled : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    /// Switches one LED; id is its number on the panel (low 16 bits).
    void enable(int id, bool enable);
    /// Brightness of all LEDs, 0 to 127, sent as given.
    void setBrightness(quint8 level, quint8 channel);
};
