#pragma once

#include "controllers/outputcompressor.h"

/// Compressor of the master output.
class qconnectmaster_cp : public OutputCompressor
{
    Q_OBJECT

public:
    qconnectmaster_cp(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setMasterCpActive(bool active, quint8 channel) { setActive(active, channel); }
    void setMasterCpAttackTime(quint8 attackTime, quint8 channel) { setAttackTime(attackTime, channel); }
    void setMasterCpReleaseTime(quint8 releaseTime, quint8 channel) { setReleaseTime(releaseTime, channel); }
    void setMasterCpThreshold(quint8 threshold, quint8 channel) { setThreshold(threshold, channel); }
    void setMasterCpRatio(quint8 ratio, quint8 channel) { setRatio(ratio, channel); }
    void setMasterCpBoost(quint8 boost, quint8 channel) { setBoost(boost, channel); }
    void setMasterCpKnee(quint8 knee, quint8 channel) { setKnee(knee, channel); }
    /// Requests one report of the meters.
    void requestLevelUpdate(quint8 channel) { requestReport(channel); }
};
