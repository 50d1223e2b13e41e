#pragma once

#include "controllers/parametercontroller.h"

#include <QVector>

/// Trigger inputs: sensitivities, times, curves. The input is named by its number, as the engine counts them;
/// values go to it as given.
class qconnecttrigger : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

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

    /// Sends a velocity curve of nine points (low byte each; further points are ignored) for the curve with
    /// the given id (low 16 bits). A curve of fewer points is refused with a warning and nothing is sent.
    void sendTriggerCurvePacket(quint32 id, const QVector<int> &curve);
    /// Marks the end of a trigger transfer, then blocks for 100 ms: the engine takes the settings over in
    /// that time and must not be sent anything else by this thread.
    void sendTriggerTransferEnd(quint8 lsb, quint8 channel);
};
