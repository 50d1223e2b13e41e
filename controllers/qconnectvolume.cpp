#include "controllers/qconnectvolume.h"

#include "controllers/encodings.h"
#include "link/parameterpages.h"

namespace {

constexpr quint8 directOutPage = 0x3B;
constexpr quint8 lastSnareStyle = 2;
constexpr quint8 channelVolume = 0x07;

} // namespace

void qconnectVolume::setSnareStyle(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x04}, qMin(value, lastSnareStyle), channel);
}

void qconnectVolume::setXFadeBalance(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x05}, value, channel);
}

void qconnectVolume::setMixInLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x06}, value, channel);
}

void qconnectVolume::setSynthMasterLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x07}, value, channel);
}

void qconnectVolume::setPlaybackRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x0F}, zelta::DataEntry{mb, lb}, channel);
}

void qconnectVolume::setUsbInLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x10}, value, channel);
}

void qconnectVolume::setSongLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x5F}, value, channel);
}

void qconnectVolume::setMasterOutBalance(quint8 value, quint8 channel)
{
    sendParameter({zelta::masterPage, 0x06}, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setMasterOutLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::masterPage, 0x07}, value, channel);
}

void qconnectVolume::setMonitorOutBalance(quint8 value, quint8 channel)
{
    sendParameter({zelta::monitorPage, 0x06}, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setMonitorOutLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::monitorPage, 0x07}, value, channel);
}

void qconnectVolume::setHeadphoneOutBalance(quint8 value, quint8 channel)
{
    sendParameter({zelta::headphonePage, 0x06}, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setHeadphoneOutLevel(quint8 value, quint8 channel)
{
    sendParameter({zelta::headphonePage, 0x07}, value, channel);
}

void qconnectVolume::sendDirectOutLevel(quint8 index, quint8 value, quint8 channel)
{
    sendParameter({directOutPage, index}, value, channel);
}

void qconnectVolume::setSpdifOutLevel(quint8 value, quint8 channel)
{
    sendParameter({directOutPage, 0x08}, value, channel);
}

void qconnectVolume::setDirectOutMode(quint8 index, quint8 mode, quint8 channel)
{
    sendParameter({directOutPage, quint8(0x10 + index)}, mode, channel);
}

void qconnectVolume::requestOutsUpdate(quint8 channel)
{
    sendParameter({directOutPage, 0x1F}, 0, channel);
}

void qconnectVolume::setDrumKitVolume(quint8 value, quint8 channel)
{
    sendEvent(zelta::controlChange(channelVolume, zelta::limitedToSevenBits(value), channel));
}
