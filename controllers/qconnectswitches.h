#pragma once

#include "controllers/parametercontroller.h"

/// Power, bluetooth and the other global switches.
class qconnectswitches : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    /// Switches the module off when on is false; it cannot be switched on from here, so true sends nothing.
    void setPowerSwitch(bool on, quint8 channel);
    void setBluetoothSwitch(bool active, quint8 channel);
    /// The same parameter as setBluetoothSwitch(), with the pair of values that the radio itself listens to.
    void setBluetoothEnable(bool enable, quint8 channel);
    /// The device's own steps; the low byte is sent.
    void setAutoOff(int autoOff, quint8 channel);
    void setFixedHiHat(bool active, quint8 channel);
    /// Name under which the module is seen, of at most 32 bytes in the local encoding. The name is cut to as
    /// many bytes as it has characters. Sent as one record of 34 bytes, not as MIDI.
    void setBluetoothName(const QString &name);
};
