#include "controllers/outputequalizer.h"

#include "controllers/encodings.h"

OutputEqualizer::OutputEqualizer(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent)
    : DeviceController(owner, parent)
    , m_page(page)
{}

// In each group of parameters the second middle band has a lower number than the first.

void OutputEqualizer::setActive(bool on, quint8 channel)
{
    sendParameter({m_page, 0x55}, zelta::onOff(on), channel);
}

void OutputEqualizer::setLowFreq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, 0x0C}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setLowGain(int gain, quint8 channel)
{
    sendParameter({m_page, 0x08}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid1Freq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, 0x0E}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setMid1Gain(int gain, quint8 channel)
{
    sendParameter({m_page, 0x0A}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid1Q(double q, quint8 channel)
{
    sendParameter({m_page, 0x11}, zelta::qValue(q), channel);
}

void OutputEqualizer::setMid2Freq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, 0x0D}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setMid2Gain(int gain, quint8 channel)
{
    sendParameter({m_page, 0x09}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid2Q(double q, quint8 channel)
{
    sendParameter({m_page, 0x10}, zelta::qValue(q), channel);
}

void OutputEqualizer::setHighFreq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, 0x0F}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setHighGain(int gain, quint8 channel)
{
    sendParameter({m_page, 0x0B}, zelta::gainValue(gain), channel);
}
