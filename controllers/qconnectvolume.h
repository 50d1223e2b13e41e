#pragma once

#include "controllers/parametercontroller.h"

/// Mixer levels, balances and routings. Values go to the engine as given unless noted.
class qconnectVolume : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    /// Snare style 0 to 2; higher values select 2.
    void setSnareStyle(quint8 value, quint8 channel);
    void setXFadeBalance(quint8 value, quint8 channel);
    void setMixInLevel(quint8 value, quint8 channel);
    void setSynthMasterLevel(quint8 value, quint8 channel);
    /// Routing word of the playback, high and low byte.
    void setPlaybackRouting(quint8 mb, quint8 lb, quint8 channel);
    void setUsbInLevel(quint8 value, quint8 channel);
    void setSongLevel(quint8 value, quint8 channel);
    /// Balance, 0 (left) to 127 (right); 1 is the same position as 0.
    void setMasterOutBalance(quint8 value, quint8 channel);
    void setMasterOutLevel(quint8 value, quint8 channel);
    void setMonitorOutBalance(quint8 value, quint8 channel);
    void setMonitorOutLevel(quint8 value, quint8 channel);
    void setHeadphoneOutBalance(quint8 value, quint8 channel);
    void setHeadphoneOutLevel(quint8 value, quint8 channel);
    void setDirectOut1Level(quint8 value, quint8 channel);
    void setDirectOut2Level(quint8 value, quint8 channel);
    void setDirectOut3Level(quint8 value, quint8 channel);
    void setDirectOut4Level(quint8 value, quint8 channel);
    void setDirectOut5Level(quint8 value, quint8 channel);
    void setDirectOut6Level(quint8 value, quint8 channel);
    void setDirectOut7Level(quint8 value, quint8 channel);
    void setDirectOut8Level(quint8 value, quint8 channel);
    void setSpdifOutLevel(quint8 value, quint8 channel);
    /// Mode of the direct output with the 0-based index, which is not checked.
    void setDirectOutMode(quint8 index, quint8 mode, quint8 channel);
    /// Asks for one report of the output levels.
    void requestOutsUpdate(quint8 channel);
    /// Volume of the whole kit, 0 to 127 (limited), as the channel volume of MIDI: a single control change.
    void setDrumKitVolume(quint8 value, quint8 channel);
};
