#pragma once

#include "controllers/parametercontroller.h"

/// The four global effect units. A routing word is given as its high and low byte.
class qconnecteffects : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setAmbienceLevel(quint8 value, quint8 channel);
    void setAmbiencePreDelay(quint8 value, quint8 channel);
    void setAmbienceActive(bool active, quint8 channel);
    void setInstReverbLevel(quint8 value, quint8 channel);
    void setInstReverbPreDelay(quint8 value, quint8 channel);
    void setInstReverbTime(quint8 value, quint8 channel);
    void setInstReverbPreHighPass(quint8 value, quint8 channel);
    void setInstReverbHighShelf(quint8 value, quint8 channel);
    void setInstReverbHighDamp(quint8 value, quint8 channel);
    void setInstReverbGatedReverbThreshold(quint8 value, quint8 channel);
    void setInstReverbType(quint8 value, quint8 channel);
    void setInstReverbSendToRoom(quint8 value, quint8 channel);
    void setInstReverbActive(bool active, quint8 channel);
    void setInstReverbRouting(quint8 mb, quint8 lb, quint8 channel);
    void setRoomReverbLevel(quint8 value, quint8 channel);
    void setRoomReverbPreDelay(quint8 value, quint8 channel);
    void setRoomReverbTime(quint8 value, quint8 channel);
    void setRoomReverbPreHighPass(quint8 value, quint8 channel);
    void setRoomReverbHighShelf(quint8 value, quint8 channel);
    void setRoomReverbHighDamp(quint8 value, quint8 channel);
    void setRoomReverbType(quint8 value, quint8 channel);
    void setRoomReverbActive(bool active, quint8 channel);
    void setRoomReverbRouting(quint8 mb, quint8 lb, quint8 channel);
    void setMultiFxLevel(quint8 value, quint8 channel);
    void setMultiFxType(quint8 value, quint8 channel);
    void setMultiFxActive(bool active, quint8 channel);
    void setMultiFxSendToRoom(quint8 value, quint8 channel);
    /// A parameter of the current effect in its display units, scaled from [min, max] to 0...127 when the
    /// type is 0; with any other type the value is the device's own number.
    void setMultiFxParam0(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam1(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam2(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam3(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam4(double value, double min, double max, int type, quint8 channel);
    void setMultiFxRouting(quint8 mb, quint8 lb, quint8 channel);
};
