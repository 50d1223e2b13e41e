#pragma once

#include "controllers/outputequalizer.h"

/// Equaliser of the monitor output.
class qconnectmonitor_eq : public OutputEqualizer
{
    Q_OBJECT

public:
    qconnectmonitor_eq(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setMonitorEqActive(bool active, quint8 channel) { setActive(active, channel); }
    void setMonitorEqLowFreq(quint32 frequency, quint8 channel) { setLowFreq(frequency, channel); }
    void setMonitorEqLowGain(int gain, quint8 channel) { setLowGain(gain, channel); }
    void setMonitorEqMid1Freq(quint32 frequency, quint8 channel) { setMid1Freq(frequency, channel); }
    void setMonitorEqMid1Gain(int gain, quint8 channel) { setMid1Gain(gain, channel); }
    void setMonitorEqMid1Q(double q, quint8 channel) { setMid1Q(q, channel); }
    void setMonitorEqMid2Freq(quint32 frequency, quint8 channel) { setMid2Freq(frequency, channel); }
    void setMonitorEqMid2Gain(int gain, quint8 channel) { setMid2Gain(gain, channel); }
    void setMonitorEqMid2Q(double q, quint8 channel) { setMid2Q(q, channel); }
    void setMonitorEqHighFreq(quint32 frequency, quint8 channel) { setHighFreq(frequency, channel); }
    void setMonitorEqHighGain(int gain, quint8 channel) { setHighGain(gain, channel); }
};
