#include "controllers/outputcompressor.h"

#include "controllers/encodings.h"

namespace {

constexpr quint8 active = 0x18;
constexpr quint8 attackTime = 0x19;
constexpr quint8 releaseTime = 0x1A;
constexpr quint8 threshold = 0x1B;
constexpr quint8 ratio = 0x1C;
constexpr quint8 boost = 0x1D;
constexpr quint8 knee = 0x1E;
constexpr quint8 levelReport = 0x1F;

} // namespace

OutputCompressor::OutputCompressor(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent)
    : ParameterController(owner, parent)
    , m_page(page)
{}

void OutputCompressor::setActive(bool on, quint8 channel)
{
    sendParameter({m_page, active}, zelta::onOff(on), channel);
}

void OutputCompressor::setAttackTime(quint8 value, quint8 channel)
{
    sendParameter({m_page, attackTime}, value, channel);
}

void OutputCompressor::setReleaseTime(quint8 value, quint8 channel)
{
    sendParameter({m_page, releaseTime}, value, channel);
}

void OutputCompressor::setThreshold(quint8 value, quint8 channel)
{
    sendParameter({m_page, threshold}, value, channel);
}

void OutputCompressor::setRatio(quint8 value, quint8 channel)
{
    sendParameter({m_page, ratio}, value, channel);
}

void OutputCompressor::setBoost(quint8 value, quint8 channel)
{
    sendParameter({m_page, boost}, value, channel);
}

void OutputCompressor::setKnee(quint8 value, quint8 channel)
{
    sendParameter({m_page, knee}, value, channel);
}

void OutputCompressor::requestReport(quint8 channel)
{
    sendParameter({m_page, levelReport}, 0, channel);
}
