#pragma once

#include "controllers/devicecontroller.h"

#include <QVector>

/// Trigger inputs: sensitivities, times and curves. An input is addressed by its number.
class qconnecttrigger : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setTriggerBankPreset(quint8 value, quint8 pad, quint8 channel);
    void setTriggerGain(quint8 value, quint8 pad, quint8 channel);
    void setTriggerThreshold(quint8 value, quint8 pad, quint8 channel);
    void setTriggerXTalk(quint8 value, quint8 pad, quint8 channel);
    void setTriggerHighLevel(quint8 value, quint8 pad, quint8 channel);
    void setTriggerHHLowPosition(quint8 value, quint8 pad, quint8 channel);
    void setTriggerHHHighPosition(quint8 value, quint8 pad, quint8 channel);
    void setTriggerScanTime(quint8 value, quint8 pad, quint8 channel);
    void setTriggerRetriggerMask(quint8 value, quint8 pad, quint8 channel);
    void setTriggerTriggerType(quint8 value, quint8 pad, quint8 channel);
    void setTriggerPositionalSensing(quint8 value, quint8 pad, quint8 channel);
    void setTriggerCurvePreset(quint8 value, quint8 pad, quint8 channel);
    void setTriggerHHChickSensitivity(quint8 value, quint8 pad, quint8 channel);
    void setTriggerHHSplashSensitivity(quint8 value, quint8 pad, quint8 channel);
    void setTriggerDynLevel(quint8 value, quint8 pad, quint8 channel);
    void setTriggerDynTime(quint8 value, quint8 pad, quint8 channel);

    /// Sends a velocity curve: the low 16 bits of its id and the low byte of its first nine points. A curve
    /// of fewer points is refused with a warning.
    void sendTriggerCurvePacket(quint32 id, const QVector<int> &curve);
    /// Marks the end of a trigger transfer, then blocks the calling thread for 100 ms.
    void sendTriggerTransferEnd(quint8 lsb, quint8 channel);
};
