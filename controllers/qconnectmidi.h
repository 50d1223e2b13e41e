#pragma once

#include "controllers/parametercontroller.h"

/// MIDI set-up of the module. Values go to the engine as given.
class qconnectmidi : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

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
