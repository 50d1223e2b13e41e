#pragma once

#include <QtGlobal>

namespace zelta {

/// Last meter report of one compressor. The engine's level 70 is 1.0.
struct CompressorMeters
{
    double inL = 0.0;
    double inR = 0.0;
    double grL = 0.0;
    double grR = 0.0;
    double outL = 0.0;
    double outR = 0.0;
};

/// Last meter report of the outputs. The engine's level 70 is 1.0.
struct OutputMeters
{
    double masterL = 0.0;
    double masterR = 0.0;
    double monitorL = 0.0;
    double monitorR = 0.0;
    double headL = 0.0;
    double headR = 0.0;
    double out1 = 0.0;
    double out2 = 0.0;
    double out3 = 0.0;
    double out4 = 0.0;
    double out5 = 0.0;
    double out6 = 0.0;
    double out7 = 0.0;
    double out8 = 0.0;
    double spdifL = 0.0;
    double spdifR = 0.0;
    double usbInL = 0.0;
    double usbInR = 0.0;
};

/// Front-panel switches and jack detection, true while the engine reports a value other than 0.
struct SwitchStates
{
    bool power = false;
    bool foot1 = false;
    bool foot2 = false;
    bool aux3 = false;
    bool aux4 = false;
    bool hpDetect = false;
    bool mixInDetect = false;
    bool homeButton = false;
};

/// Last values that the sound engine reported, as QML reads them. Used in the GUI thread only.
struct InboundState
{
    quint32 note = 0;
    quint32 afterTouchNote = 0;
    quint32 position = 0;
    quint32 beat = 0;
    quint32 tempo = 0;
    quint32 flashSize = 0;
    quint32 totalFlashSize = 0;
    CompressorMeters padCp;
    CompressorMeters masterCp;
    CompressorMeters monitorCp;
    CompressorMeters headCp;
    OutputMeters outputs;
    double soundBankProgress = 0.0;
    double triggerBankProgress = 0.0;
    double btfwProgress = 0.0;
    SwitchStates switches;
};

} // namespace zelta
