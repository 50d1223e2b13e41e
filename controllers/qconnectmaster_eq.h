#pragma once

#include "controllers/outputequalizer.h"

/// Equaliser of the master output.
class qconnectmaster_eq : public OutputEqualizer
{
    Q_OBJECT

public:
    qconnectmaster_eq(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setMasterEqActive(bool active, quint8 channel) { setActive(active, channel); }
    void setMasterEqLowFreq(quint32 frequency, quint8 channel) { setLowFreq(frequency, channel); }
    void setMasterEqLowGain(int gain, quint8 channel) { setLowGain(gain, channel); }
    void setMasterEqMid1Freq(quint32 frequency, quint8 channel) { setMid1Freq(frequency, channel); }
    void setMasterEqMid1Gain(int gain, quint8 channel) { setMid1Gain(gain, channel); }
    void setMasterEqMid1Q(double q, quint8 channel) { setMid1Q(q, channel); }
    void setMasterEqMid2Freq(quint32 frequency, quint8 channel) { setMid2Freq(frequency, channel); }
    void setMasterEqMid2Gain(int gain, quint8 channel) { setMid2Gain(gain, channel); }
    void setMasterEqMid2Q(double q, quint8 channel) { setMid2Q(q, channel); }
    void setMasterEqHighFreq(quint32 frequency, quint8 channel) { setHighFreq(frequency, channel); }
    void setMasterEqHighGain(int gain, quint8 channel) { setHighGain(gain, channel); }
};
