#include "controllers/qconnectled.h"

#include "control/qconnectqmlplugin.h"
#include "link/parameterpages.h"
#include "link/rawpacket.h"

#include <QtEndian>

namespace {

// In the memory of a little-endian board these are the letters L and D, which is what the device looks for.
constexpr quint16 ledKind = 0x444C;

constexpr zelta::NrpnNumber ledBrightness{zelta::generalPage, 0x40};

} // namespace

void qconnectled::enable(int id, bool enable)
{
    RAW_PACKET packet;
    packet.kind = ledKind;
    packet.firstBigEndian = qToBigEndian(quint16(id));
    packet.secondBigEndian = qToBigEndian(quint16(enable ? 1 : 0));
    owner()->writeRawData(packet);
}

void qconnectled::setBrightness(quint8 level, quint8 channel)
{
    sendParameter(ledBrightness, level, channel);
}
