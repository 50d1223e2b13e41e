#pragma once

#include "controllers/outputcompressor.h"

/// Compressor of the headphone output.
class qconnecthead_cp : public OutputCompressor
{
    Q_OBJECT

public:
    qconnecthead_cp(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setHeadCpActive(bool active, quint8 channel) { setActive(active, channel); }
    void setHeadCpAttackTime(quint8 attackTime, quint8 channel) { setAttackTime(attackTime, channel); }
    void setHeadCpReleaseTime(quint8 releaseTime, quint8 channel) { setReleaseTime(releaseTime, channel); }
    void setHeadCpThreshold(quint8 threshold, quint8 channel) { setThreshold(threshold, channel); }
    void setHeadCpRatio(quint8 ratio, quint8 channel) { setRatio(ratio, channel); }
    void setHeadCpBoost(quint8 boost, quint8 channel) { setBoost(boost, channel); }
    void setHeadCpKnee(quint8 knee, quint8 channel) { setKnee(knee, channel); }
    /// Requests one report of the meters.
    void requestLevelUpdate(quint8 channel) { requestReport(channel); }
};
