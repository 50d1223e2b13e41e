#include "controllers/outputcompressor.h"

#include "controllers/encodings.h"

OutputCompressor::OutputCompressor(quint8 page, QConnectQmlPlugin *owner, QQuickItem *parent)
    : DeviceController(owner, parent)
    , m_page(page)
{}

void OutputCompressor::setActive(bool on, quint8 channel)
{
    sendParameter({m_page, 0x18}, zelta::onOff(on), channel);
}

void OutputCompressor::setAttackTime(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x19}, value, channel);
}

void OutputCompressor::setReleaseTime(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x1A}, value, channel);
}

void OutputCompressor::setThreshold(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x1B}, value, channel);
}

void OutputCompressor::setRatio(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x1C}, value, channel);
}

void OutputCompressor::setBoost(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x1D}, value, channel);
}

void OutputCompressor::setKnee(quint8 value, quint8 channel)
{
    sendParameter({m_page, 0x1E}, value, channel);
}

void OutputCompressor::requestReport(quint8 channel)
{
    sendParameter({m_page, 0x1F}, 0, channel);
}
