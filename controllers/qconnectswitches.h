#pragma once

#include "controllers/devicecontroller.h"

/// Power, bluetooth and the other global switches.
class qconnectswitches : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    /// Switches the module off when on is false. Sends nothing when on is true.
    void setPowerSwitch(bool on, quint8 channel);
    void setBluetoothSwitch(bool active, quint8 channel);
    /// Sends the same parameter as setBluetoothSwitch() with another pair of values: 64 enables, 63 disables.
    void setBluetoothEnable(bool enable, quint8 channel);
    /// Auto-off setting, in the device's own units. The low eight bits are sent.
    void setAutoOff(int autoOff, quint8 channel);
    void setFixedHiHat(bool active, quint8 channel);
    /// Bluetooth name of the module, in the local 8-bit encoding. The encoded name is cut to 32 bytes and to
    /// as many bytes as the name has characters. Sent as a record of 34 bytes, not as MIDI.
    void setBluetoothName(const QString &name);
};
