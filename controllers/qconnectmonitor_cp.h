#pragma once

#include "controllers/outputcompressor.h"

/// Compressor of the monitor output.
class qconnectmonitor_cp : public OutputCompressor
{
    Q_OBJECT

public:
    qconnectmonitor_cp(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setMonitorCpActive(bool active, quint8 channel) { setActive(active, channel); }
    void setMonitorCpAttackTime(quint8 attackTime, quint8 channel) { setAttackTime(attackTime, channel); }
    void setMonitorCpReleaseTime(quint8 releaseTime, quint8 channel) { setReleaseTime(releaseTime, channel); }
    void setMonitorCpThreshold(quint8 threshold, quint8 channel) { setThreshold(threshold, channel); }
    void setMonitorCpRatio(quint8 ratio, quint8 channel) { setRatio(ratio, channel); }
    void setMonitorCpBoost(quint8 boost, quint8 channel) { setBoost(boost, channel); }
    void setMonitorCpKnee(quint8 knee, quint8 channel) { setKnee(knee, channel); }
    /// Requests one report of the meters.
    void requestLevelUpdate(quint8 channel) { requestReport(channel); }
};
