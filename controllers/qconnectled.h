#pragma once

#include "controllers/devicecontroller.h"

/// Front-panel LEDs.
class qconnectled : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    /// Switches one LED on or off. The low 16 bits of its number are sent.
    void enable(int id, bool enable);
    /// LED brightness.
    void setBrightness(quint8 level, quint8 channel);
};
