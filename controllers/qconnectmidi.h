#pragma once

#include "controllers/devicecontroller.h"

/// MIDI settings of the module.
class qconnectmidi : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setMidiChannel(quint8 value, quint8 channel);
    void setLocalControl(quint8 value, quint8 channel);
    void setMidiInput(quint8 value, quint8 channel);
    void setUsbMidi(quint8 value, quint8 channel);
    void setHiHatPedalChannel(quint8 value, quint8 channel);
    void setSnareChannel(quint8 value, quint8 channel);
    void setRideChannel(quint8 value, quint8 channel);
    void setTomAuxChannel(quint8 value, quint8 channel);
    void setKitVolumeChannel(quint8 value, quint8 channel);
};
