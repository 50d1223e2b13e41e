#include "controllers/outputequalizer.h"

#include "controllers/encodings.h"

namespace {

// The device numbers the second middle band before the first.
constexpr quint8 active = 0x55;
constexpr quint8 lowGain = 0x08;
constexpr quint8 mid2Gain = 0x09;
constexpr quint8 mid1Gain = 0x0A;
constexpr quint8 highGain = 0x0B;
constexpr quint8 lowFreq = 0x0C;
constexpr quint8 mid2Freq = 0x0D;
constexpr quint8 mid1Freq = 0x0E;
constexpr quint8 highFreq = 0x0F;
constexpr quint8 mid2Q = 0x10;
constexpr quint8 mid1Q = 0x11;

} // namespace

OutputEqualizer::OutputEqualizer(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent)
    : ParameterController(owner, parent)
    , m_page(page)
{}

void OutputEqualizer::setActive(bool on, quint8 channel)
{
    sendParameter({m_page, active}, zelta::onOff(on), channel);
}

void OutputEqualizer::setLowFreq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, lowFreq}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setLowGain(int gain, quint8 channel)
{
    sendParameter({m_page, lowGain}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid1Freq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, mid1Freq}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setMid1Gain(int gain, quint8 channel)
{
    sendParameter({m_page, mid1Gain}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid1Q(double q, quint8 channel)
{
    sendParameter({m_page, mid1Q}, zelta::qValue(q), channel);
}

void OutputEqualizer::setMid2Freq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, mid2Freq}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setMid2Gain(int gain, quint8 channel)
{
    sendParameter({m_page, mid2Gain}, zelta::gainValue(gain), channel);
}

void OutputEqualizer::setMid2Q(double q, quint8 channel)
{
    sendParameter({m_page, mid2Q}, zelta::qValue(q), channel);
}

void OutputEqualizer::setHighFreq(quint32 frequency, quint8 channel)
{
    sendParameter({m_page, highFreq}, zelta::fourteenBits(frequency), channel);
}

void OutputEqualizer::setHighGain(int gain, quint8 channel)
{
    sendParameter({m_page, highGain}, zelta::gainValue(gain), channel);
}
