#pragma once

#include "controllers/outputequalizer.h"

/// Equaliser of the headphone output.
class qconnecthead_eq : public OutputEqualizer
{
    Q_OBJECT

public:
    qconnecthead_eq(QConnectQmlPlugin *owner, QQuickItem *parent);

    void setHeadEqActive(bool active, quint8 channel) { setActive(active, channel); }
    void setHeadEqLowFreq(quint32 frequency, quint8 channel) { setLowFreq(frequency, channel); }
    void setHeadEqLowGain(int gain, quint8 channel) { setLowGain(gain, channel); }
    void setHeadEqMid1Freq(quint32 frequency, quint8 channel) { setMid1Freq(frequency, channel); }
    void setHeadEqMid1Gain(int gain, quint8 channel) { setMid1Gain(gain, channel); }
    void setHeadEqMid1Q(double q, quint8 channel) { setMid1Q(q, channel); }
    void setHeadEqMid2Freq(quint32 frequency, quint8 channel) { setMid2Freq(frequency, channel); }
    void setHeadEqMid2Gain(int gain, quint8 channel) { setMid2Gain(gain, channel); }
    void setHeadEqMid2Q(double q, quint8 channel) { setMid2Q(q, channel); }
    void setHeadEqHighFreq(quint32 frequency, quint8 channel) { setHighFreq(frequency, channel); }
    void setHeadEqHighGain(int gain, quint8 channel) { setHighGain(gain, channel); }
};
