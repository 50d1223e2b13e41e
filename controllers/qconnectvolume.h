#pragma once

#include "controllers/devicecontroller.h"

/// Mixer levels, balances and routings.
class qconnectVolume : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    /// Snare style, 0 to 2; higher values are sent as 2.
    void setSnareStyle(quint8 value, quint8 channel);
    void setXFadeBalance(quint8 value, quint8 channel);
    void setMixInLevel(quint8 value, quint8 channel);
    void setSynthMasterLevel(quint8 value, quint8 channel);
    /// Output routing of the playback; mb is the high byte and lb the low byte.
    void setPlaybackRouting(quint8 mb, quint8 lb, quint8 channel);
    void setUsbInLevel(quint8 value, quint8 channel);
    void setSongLevel(quint8 value, quint8 channel);
    /// Balance of an output, 0 to 127; 1 is sent as 0.
    void setMasterOutBalance(quint8 value, quint8 channel);
    void setMasterOutLevel(quint8 value, quint8 channel);
    void setMonitorOutBalance(quint8 value, quint8 channel);
    void setMonitorOutLevel(quint8 value, quint8 channel);
    void setHeadphoneOutBalance(quint8 value, quint8 channel);
    void setHeadphoneOutLevel(quint8 value, quint8 channel);
    void setDirectOut1Level(quint8 value, quint8 channel) { sendDirectOutLevel(0, value, channel); }
    void setDirectOut2Level(quint8 value, quint8 channel) { sendDirectOutLevel(1, value, channel); }
    void setDirectOut3Level(quint8 value, quint8 channel) { sendDirectOutLevel(2, value, channel); }
    void setDirectOut4Level(quint8 value, quint8 channel) { sendDirectOutLevel(3, value, channel); }
    void setDirectOut5Level(quint8 value, quint8 channel) { sendDirectOutLevel(4, value, channel); }
    void setDirectOut6Level(quint8 value, quint8 channel) { sendDirectOutLevel(5, value, channel); }
    void setDirectOut7Level(quint8 value, quint8 channel) { sendDirectOutLevel(6, value, channel); }
    void setDirectOut8Level(quint8 value, quint8 channel) { sendDirectOutLevel(7, value, channel); }
    void setSpdifOutLevel(quint8 value, quint8 channel);
    /// Mode of the direct output with the given 0-based index. The index is not checked.
    void setDirectOutMode(quint8 index, quint8 mode, quint8 channel);
    /// Requests one report of the output levels.
    void requestOutsUpdate(quint8 channel);
    /// Volume of the whole kit, limited to 127. Sent as a single control change, the MIDI channel volume.
    void setDrumKitVolume(quint8 value, quint8 channel);

private:
    void sendDirectOutLevel(quint8 index, quint8 value, quint8 channel);
};
