#pragma once

#include "controllers/parametercontroller.h"

/// What the equalisers of the three outputs share: four bands. The output is chosen by the page of the
/// parameter number. Gain in dB (-15 to 15) and Q (0.1 to 8) are limited; a frequency of up to 16383 is
/// exact.
class OutputEqualizer : public ParameterController
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
