#include "controllers/qconnectled.h"

#include "control/qconnectqmlplugin.h"
#include "link/parameterpages.h"
#include "link/rawpacket.h"

#include <QtEndian>

namespace {

// Sent in host byte order: the bytes "LD" on a little-endian board.
constexpr quint16 ledKind = 0x444C;

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
    sendParameter({zelta::generalPage, 0x40}, level, channel);
}
