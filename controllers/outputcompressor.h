#pragma once

#include "controllers/devicecontroller.h"

/// Base of the compressors of the three outputs. The page of the parameter number selects the output.
class OutputCompressor : public DeviceController
{
    Q_OBJECT

protected:
    OutputCompressor(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent);

    void setActive(bool on, quint8 channel);
    void setAttackTime(quint8 value, quint8 channel);
    void setReleaseTime(quint8 value, quint8 channel);
    void setThreshold(quint8 value, quint8 channel);
    void setRatio(quint8 value, quint8 channel);
    void setBoost(quint8 value, quint8 channel);
    void setKnee(quint8 value, quint8 channel);
    void requestReport(quint8 channel);

private:
    const quint8 m_page;
};
