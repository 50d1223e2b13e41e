#include "controllers/qconnecteffects.h"

#include "controllers/encodings.h"

namespace {

// The page selects the unit: 0x01 ambience, 0x02 instrument reverb, 0x03 room reverb, 0x04 multi-effect.
constexpr zelta::NrpnNumber ambienceLevel{0x01, 0x00};
constexpr zelta::NrpnNumber ambiencePreDelay{0x01, 0x01};
constexpr zelta::NrpnNumber ambienceActive{0x01, 0x02};
constexpr zelta::NrpnNumber instReverbLevel{0x02, 0x00};
constexpr zelta::NrpnNumber instReverbPreDelay{0x02, 0x01};
constexpr zelta::NrpnNumber instReverbTime{0x02, 0x02};
constexpr zelta::NrpnNumber instReverbPreHighPass{0x02, 0x03};
constexpr zelta::NrpnNumber instReverbHighShelf{0x02, 0x04};
constexpr zelta::NrpnNumber instReverbHighDamp{0x02, 0x05};
constexpr zelta::NrpnNumber instReverbGatedReverbThreshold{0x02, 0x06};
constexpr zelta::NrpnNumber instReverbType{0x02, 0x07};
constexpr zelta::NrpnNumber instReverbSendToRoom{0x02, 0x08};
constexpr zelta::NrpnNumber instReverbActive{0x02, 0x09};
constexpr zelta::NrpnNumber instReverbRouting{0x02, 0x0F};
// The room reverb has no gate and no send to itself; what it shares with the instrument reverb has the same
// second half of the number.
constexpr zelta::NrpnNumber roomReverbLevel{0x03, 0x00};
constexpr zelta::NrpnNumber roomReverbPreDelay{0x03, 0x01};
constexpr zelta::NrpnNumber roomReverbTime{0x03, 0x02};
constexpr zelta::NrpnNumber roomReverbPreHighPass{0x03, 0x03};
constexpr zelta::NrpnNumber roomReverbHighShelf{0x03, 0x04};
constexpr zelta::NrpnNumber roomReverbHighDamp{0x03, 0x05};
constexpr zelta::NrpnNumber roomReverbType{0x03, 0x07};
constexpr zelta::NrpnNumber roomReverbActive{0x03, 0x09};
constexpr zelta::NrpnNumber roomReverbRouting{0x03, 0x0F};
constexpr zelta::NrpnNumber multiFxLevel{0x04, 0x00};
constexpr zelta::NrpnNumber multiFxType{0x04, 0x01};
constexpr zelta::NrpnNumber multiFxActive{0x04, 0x02};
constexpr zelta::NrpnNumber multiFxSendToRoom{0x04, 0x03};
constexpr zelta::NrpnNumber multiFxParam0{0x04, 0x04};
constexpr zelta::NrpnNumber multiFxParam1{0x04, 0x05};
constexpr zelta::NrpnNumber multiFxParam2{0x04, 0x06};
constexpr zelta::NrpnNumber multiFxParam3{0x04, 0x07};
constexpr zelta::NrpnNumber multiFxParam4{0x04, 0x08};
constexpr zelta::NrpnNumber multiFxRouting{0x04, 0x0F};

} // namespace

void qconnecteffects::setAmbienceLevel(quint8 value, quint8 channel)
{
    sendParameter(ambienceLevel, value, channel);
}

void qconnecteffects::setAmbiencePreDelay(quint8 value, quint8 channel)
{
    sendParameter(ambiencePreDelay, value, channel);
}

void qconnecteffects::setAmbienceActive(bool active, quint8 channel)
{
    sendParameter(ambienceActive, zelta::onOff(active), channel);
}

void qconnecteffects::setInstReverbLevel(quint8 value, quint8 channel)
{
    sendParameter(instReverbLevel, value, channel);
}

void qconnecteffects::setInstReverbPreDelay(quint8 value, quint8 channel)
{
    sendParameter(instReverbPreDelay, value, channel);
}

void qconnecteffects::setInstReverbTime(quint8 value, quint8 channel)
{
    sendParameter(instReverbTime, value, channel);
}

void qconnecteffects::setInstReverbPreHighPass(quint8 value, quint8 channel)
{
    sendParameter(instReverbPreHighPass, value, channel);
}

void qconnecteffects::setInstReverbHighShelf(quint8 value, quint8 channel)
{
    sendParameter(instReverbHighShelf, value, channel);
}

void qconnecteffects::setInstReverbHighDamp(quint8 value, quint8 channel)
{
    sendParameter(instReverbHighDamp, value, channel);
}

void qconnecteffects::setInstReverbGatedReverbThreshold(quint8 value, quint8 channel)
{
    sendParameter(instReverbGatedReverbThreshold, value, channel);
}

void qconnecteffects::setInstReverbType(quint8 value, quint8 channel)
{
    sendParameter(instReverbType, value, channel);
}

void qconnecteffects::setInstReverbSendToRoom(quint8 value, quint8 channel)
{
    sendParameter(instReverbSendToRoom, value, channel);
}

void qconnecteffects::setInstReverbActive(bool active, quint8 channel)
{
    sendParameter(instReverbActive, zelta::onOff(active), channel);
}

void qconnecteffects::setInstReverbRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter(instReverbRouting, zelta::DataEntry{mb, lb}, channel);
}

void qconnecteffects::setRoomReverbLevel(quint8 value, quint8 channel)
{
    sendParameter(roomReverbLevel, value, channel);
}

void qconnecteffects::setRoomReverbPreDelay(quint8 value, quint8 channel)
{
    sendParameter(roomReverbPreDelay, value, channel);
}

void qconnecteffects::setRoomReverbTime(quint8 value, quint8 channel)
{
    sendParameter(roomReverbTime, value, channel);
}

void qconnecteffects::setRoomReverbPreHighPass(quint8 value, quint8 channel)
{
    sendParameter(roomReverbPreHighPass, value, channel);
}

void qconnecteffects::setRoomReverbHighShelf(quint8 value, quint8 channel)
{
    sendParameter(roomReverbHighShelf, value, channel);
}

void qconnecteffects::setRoomReverbHighDamp(quint8 value, quint8 channel)
{
    sendParameter(roomReverbHighDamp, value, channel);
}

void qconnecteffects::setRoomReverbType(quint8 value, quint8 channel)
{
    sendParameter(roomReverbType, value, channel);
}

void qconnecteffects::setRoomReverbActive(bool active, quint8 channel)
{
    sendParameter(roomReverbActive, zelta::onOff(active), channel);
}

void qconnecteffects::setRoomReverbRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter(roomReverbRouting, zelta::DataEntry{mb, lb}, channel);
}

void qconnecteffects::setMultiFxLevel(quint8 value, quint8 channel)
{
    sendParameter(multiFxLevel, value, channel);
}

void qconnecteffects::setMultiFxType(quint8 value, quint8 channel)
{
    sendParameter(multiFxType, value, channel);
}

void qconnecteffects::setMultiFxActive(bool active, quint8 channel)
{
    sendParameter(multiFxActive, zelta::onOff(active), channel);
}

void qconnecteffects::setMultiFxSendToRoom(quint8 value, quint8 channel)
{
    sendParameter(multiFxSendToRoom, value, channel);
}

void qconnecteffects::setMultiFxParam0(double value, double min, double max, int type, quint8 channel)
{
    sendParameter(multiFxParam0, zelta::effectParameter(value, min, max, type), channel);
}

void qconnecteffects::setMultiFxParam1(double value, double min, double max, int type, quint8 channel)
{
    sendParameter(multiFxParam1, zelta::effectParameter(value, min, max, type), channel);
}

void qconnecteffects::setMultiFxParam2(double value, double min, double max, int type, quint8 channel)
{
    sendParameter(multiFxParam2, zelta::effectParameter(value, min, max, type), channel);
}

void qconnecteffects::setMultiFxParam3(double value, double min, double max, int type, quint8 channel)
{
    sendParameter(multiFxParam3, zelta::effectParameter(value, min, max, type), channel);
}

void qconnecteffects::setMultiFxParam4(double value, double min, double max, int type, quint8 channel)
{
    sendParameter(multiFxParam4, zelta::effectParameter(value, min, max, type), channel);
}

void qconnecteffects::setMultiFxRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter(multiFxRouting, zelta::DataEntry{mb, lb}, channel);
}
