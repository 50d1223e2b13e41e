#include "controllers/qconnectvolume.h"

#include "controllers/encodings.h"
#include "link/parameterpages.h"

namespace {

constexpr quint8 directOutPage = 0x3B;

constexpr zelta::NrpnNumber snareStyle{zelta::generalPage, 0x04};
constexpr zelta::NrpnNumber xFadeBalance{zelta::generalPage, 0x05};
constexpr zelta::NrpnNumber mixInLevel{zelta::generalPage, 0x06};
constexpr zelta::NrpnNumber synthMasterLevel{zelta::generalPage, 0x07};
constexpr zelta::NrpnNumber playbackRouting{zelta::generalPage, 0x0F};
constexpr zelta::NrpnNumber usbInLevel{zelta::generalPage, 0x10};
constexpr zelta::NrpnNumber songLevel{zelta::generalPage, 0x5F};
constexpr zelta::NrpnNumber masterOutBalance{zelta::masterPage, 0x06};
constexpr zelta::NrpnNumber masterOutLevel{zelta::masterPage, 0x07};
constexpr zelta::NrpnNumber monitorOutBalance{zelta::monitorPage, 0x06};
constexpr zelta::NrpnNumber monitorOutLevel{zelta::monitorPage, 0x07};
constexpr zelta::NrpnNumber headphoneOutBalance{zelta::headphonePage, 0x06};
constexpr zelta::NrpnNumber headphoneOutLevel{zelta::headphonePage, 0x07};
constexpr zelta::NrpnNumber directOut1Level{directOutPage, 0x00};
constexpr zelta::NrpnNumber directOut2Level{directOutPage, 0x01};
constexpr zelta::NrpnNumber directOut3Level{directOutPage, 0x02};
constexpr zelta::NrpnNumber directOut4Level{directOutPage, 0x03};
constexpr zelta::NrpnNumber directOut5Level{directOutPage, 0x04};
constexpr zelta::NrpnNumber directOut6Level{directOutPage, 0x05};
constexpr zelta::NrpnNumber directOut7Level{directOutPage, 0x06};
constexpr zelta::NrpnNumber directOut8Level{directOutPage, 0x07};
constexpr zelta::NrpnNumber spdifOutLevel{directOutPage, 0x08};
constexpr zelta::NrpnNumber firstDirectOutMode{directOutPage, 0x10};
constexpr zelta::NrpnNumber outsReport{directOutPage, 0x1F};

constexpr quint8 lastSnareStyle = 2;
constexpr quint8 channelVolume = 0x07;

} // namespace

void qconnectVolume::setSnareStyle(quint8 value, quint8 channel)
{
    sendParameter(snareStyle, qMin(value, lastSnareStyle), channel);
}

void qconnectVolume::setXFadeBalance(quint8 value, quint8 channel)
{
    sendParameter(xFadeBalance, value, channel);
}

void qconnectVolume::setMixInLevel(quint8 value, quint8 channel)
{
    sendParameter(mixInLevel, value, channel);
}

void qconnectVolume::setSynthMasterLevel(quint8 value, quint8 channel)
{
    sendParameter(synthMasterLevel, value, channel);
}

void qconnectVolume::setPlaybackRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter(playbackRouting, zelta::DataEntry{mb, lb}, channel);
}

void qconnectVolume::setUsbInLevel(quint8 value, quint8 channel)
{
    sendParameter(usbInLevel, value, channel);
}

void qconnectVolume::setSongLevel(quint8 value, quint8 channel)
{
    sendParameter(songLevel, value, channel);
}

void qconnectVolume::setMasterOutBalance(quint8 value, quint8 channel)
{
    sendParameter(masterOutBalance, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setMasterOutLevel(quint8 value, quint8 channel)
{
    sendParameter(masterOutLevel, value, channel);
}

void qconnectVolume::setMonitorOutBalance(quint8 value, quint8 channel)
{
    sendParameter(monitorOutBalance, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setMonitorOutLevel(quint8 value, quint8 channel)
{
    sendParameter(monitorOutLevel, value, channel);
}

void qconnectVolume::setHeadphoneOutBalance(quint8 value, quint8 channel)
{
    sendParameter(headphoneOutBalance, zelta::positionWithoutOne(value), channel);
}

void qconnectVolume::setHeadphoneOutLevel(quint8 value, quint8 channel)
{
    sendParameter(headphoneOutLevel, value, channel);
}

void qconnectVolume::setDirectOut1Level(quint8 value, quint8 channel)
{
    sendParameter(directOut1Level, value, channel);
}

void qconnectVolume::setDirectOut2Level(quint8 value, quint8 channel)
{
    sendParameter(directOut2Level, value, channel);
}

void qconnectVolume::setDirectOut3Level(quint8 value, quint8 channel)
{
    sendParameter(directOut3Level, value, channel);
}

void qconnectVolume::setDirectOut4Level(quint8 value, quint8 channel)
{
    sendParameter(directOut4Level, value, channel);
}

void qconnectVolume::setDirectOut5Level(quint8 value, quint8 channel)
{
    sendParameter(directOut5Level, value, channel);
}

void qconnectVolume::setDirectOut6Level(quint8 value, quint8 channel)
{
    sendParameter(directOut6Level, value, channel);
}

void qconnectVolume::setDirectOut7Level(quint8 value, quint8 channel)
{
    sendParameter(directOut7Level, value, channel);
}

void qconnectVolume::setDirectOut8Level(quint8 value, quint8 channel)
{
    sendParameter(directOut8Level, value, channel);
}

void qconnectVolume::setSpdifOutLevel(quint8 value, quint8 channel)
{
    sendParameter(spdifOutLevel, value, channel);
}

void qconnectVolume::setDirectOutMode(quint8 index, quint8 mode, quint8 channel)
{
    const zelta::NrpnNumber number{firstDirectOutMode.msb, quint8(firstDirectOutMode.lsb + index)};
    sendParameter(number, mode, channel);
}

void qconnectVolume::requestOutsUpdate(quint8 channel)
{
    sendParameter(outsReport, 0, channel);
}

void qconnectVolume::setDrumKitVolume(quint8 value, quint8 channel)
{
    sendEvent(zelta::controlChange(channelVolume, zelta::limitedToSevenBits(value), channel));
}
