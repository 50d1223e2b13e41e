#pragma once

#include "controllers/devicecontroller.h"

/// The four global effect units: ambience, instrument reverb, room reverb and multi-effect. A routing is a
/// number of two bytes: mb is its high byte, lb its low byte.
class qconnecteffects : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

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
    /// Parameter of the current effect. With type 0 the value is scaled from min...max, in display units, to
    /// 0...127. With any other type the integer part of the value is sent, low eight bits.
    void setMultiFxParam0(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam1(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam2(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam3(double value, double min, double max, int type, quint8 channel);
    void setMultiFxParam4(double value, double min, double max, int type, quint8 channel);
    void setMultiFxRouting(quint8 mb, quint8 lb, quint8 channel);

private:
    void sendMultiFxParam(quint8 index, double value, double min, double max, int type, quint8 channel);
};
