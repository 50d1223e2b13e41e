#include "controllers/qconnecteffects.h"

#include "controllers/encodings.h"

namespace {

// Each effect unit has a page. Both reverbs use the same low byte for the parameters that they share.
constexpr quint8 ambiencePage = 0x01;
constexpr quint8 instReverbPage = 0x02;
constexpr quint8 roomReverbPage = 0x03;
constexpr quint8 multiFxPage = 0x04;

} // namespace

void qconnecteffects::setAmbienceLevel(quint8 value, quint8 channel)
{
    sendParameter({ambiencePage, 0x00}, value, channel);
}

void qconnecteffects::setAmbiencePreDelay(quint8 value, quint8 channel)
{
    sendParameter({ambiencePage, 0x01}, value, channel);
}

void qconnecteffects::setAmbienceActive(bool active, quint8 channel)
{
    sendParameter({ambiencePage, 0x02}, zelta::onOff(active), channel);
}

void qconnecteffects::setInstReverbLevel(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x00}, value, channel);
}

void qconnecteffects::setInstReverbPreDelay(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x01}, value, channel);
}

void qconnecteffects::setInstReverbTime(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x02}, value, channel);
}

void qconnecteffects::setInstReverbPreHighPass(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x03}, value, channel);
}

void qconnecteffects::setInstReverbHighShelf(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x04}, value, channel);
}

void qconnecteffects::setInstReverbHighDamp(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x05}, value, channel);
}

void qconnecteffects::setInstReverbGatedReverbThreshold(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x06}, value, channel);
}

void qconnecteffects::setInstReverbType(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x07}, value, channel);
}

void qconnecteffects::setInstReverbSendToRoom(quint8 value, quint8 channel)
{
    sendParameter({instReverbPage, 0x08}, value, channel);
}

void qconnecteffects::setInstReverbActive(bool active, quint8 channel)
{
    sendParameter({instReverbPage, 0x09}, zelta::onOff(active), channel);
}

void qconnecteffects::setInstReverbRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter({instReverbPage, 0x0F}, zelta::DataEntry{mb, lb}, channel);
}

void qconnecteffects::setRoomReverbLevel(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x00}, value, channel);
}

void qconnecteffects::setRoomReverbPreDelay(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x01}, value, channel);
}

void qconnecteffects::setRoomReverbTime(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x02}, value, channel);
}

void qconnecteffects::setRoomReverbPreHighPass(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x03}, value, channel);
}

void qconnecteffects::setRoomReverbHighShelf(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x04}, value, channel);
}

void qconnecteffects::setRoomReverbHighDamp(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x05}, value, channel);
}

void qconnecteffects::setRoomReverbType(quint8 value, quint8 channel)
{
    sendParameter({roomReverbPage, 0x07}, value, channel);
}

void qconnecteffects::setRoomReverbActive(bool active, quint8 channel)
{
    sendParameter({roomReverbPage, 0x09}, zelta::onOff(active), channel);
}

void qconnecteffects::setRoomReverbRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter({roomReverbPage, 0x0F}, zelta::DataEntry{mb, lb}, channel);
}

void qconnecteffects::setMultiFxLevel(quint8 value, quint8 channel)
{
    sendParameter({multiFxPage, 0x00}, value, channel);
}

void qconnecteffects::setMultiFxType(quint8 value, quint8 channel)
{
    sendParameter({multiFxPage, 0x01}, value, channel);
}

void qconnecteffects::setMultiFxActive(bool active, quint8 channel)
{
    sendParameter({multiFxPage, 0x02}, zelta::onOff(active), channel);
}

void qconnecteffects::setMultiFxSendToRoom(quint8 value, quint8 channel)
{
    sendParameter({multiFxPage, 0x03}, value, channel);
}

void qconnecteffects::setMultiFxParam0(double value, double min, double max, int type, quint8 channel)
{
    sendMultiFxParam(0, value, min, max, type, channel);
}

void qconnecteffects::setMultiFxParam1(double value, double min, double max, int type, quint8 channel)
{
    sendMultiFxParam(1, value, min, max, type, channel);
}

void qconnecteffects::setMultiFxParam2(double value, double min, double max, int type, quint8 channel)
{
    sendMultiFxParam(2, value, min, max, type, channel);
}

void qconnecteffects::setMultiFxParam3(double value, double min, double max, int type, quint8 channel)
{
    sendMultiFxParam(3, value, min, max, type, channel);
}

void qconnecteffects::setMultiFxParam4(double value, double min, double max, int type, quint8 channel)
{
    sendMultiFxParam(4, value, min, max, type, channel);
}

void qconnecteffects::sendMultiFxParam(quint8 index, double value, double min, double max, int type,
                                       quint8 channel)
{
    sendParameter({multiFxPage, quint8(0x04 + index)}, zelta::effectParameter(value, min, max, type),
                  channel);
}

void qconnecteffects::setMultiFxRouting(quint8 mb, quint8 lb, quint8 channel)
{
    sendParameter({multiFxPage, 0x0F}, zelta::DataEntry{mb, lb}, channel);
}
