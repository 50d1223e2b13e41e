#pragma once

#include "controllers/devicecontroller.h"

/// Base of the equalisers of the three outputs, each with four bands. The page of the parameter number
/// selects the output. Gain, in dB, is limited to -15...15 and Q to 0.1...8. A frequency of 0...16383 is sent
/// exactly.
class OutputEqualizer : public DeviceController
{
    Q_OBJECT

protected:
    OutputEqualizer(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent);

    void setActive(bool on, quint8 channel);
    void setLowFreq(quint32 frequency, quint8 channel);
    void setLowGain(int gain, quint8 channel);
    void setMid1Freq(quint32 frequency, quint8 channel);
    void setMid1Gain(int gain, quint8 channel);
    void setMid1Q(double q, quint8 channel);
    void setMid2Freq(quint32 frequency, quint8 channel);
    void setMid2Gain(int gain, quint8 channel);
    void setMid2Q(double q, quint8 channel);
    void setHighFreq(quint32 frequency, quint8 channel);
    void setHighGain(int gain, quint8 channel);

private:
    const quint8 m_page;
};
