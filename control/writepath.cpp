#include "control/qconnectqmlplugin.h"

#include "link/midipacket.h"
#include "link/sockettransceiver.h"
#include "link/writepath.h"
#include "transfer/datapacket.h"

qint64 QConnectQmlPlugin::writeMidiData(const MIDI_PACKET &packet)
{
    return zelta::sendToEngine(*m_link, packet.bytes());
}

qint64 QConnectQmlPlugin::writeBinaryData(const DATA_PACKET &packet)
{
    return zelta::sendToEngine(*m_link, packet.bytes());
}

qint64 QConnectQmlPlugin::writeBinaryData(const QByteArray &bytes)
{
    return zelta::sendToEngine(*m_link, bytes);
}

qint64 QConnectQmlPlugin::writeRawData(const RAW_PACKET &packet)
{
    return zelta::sendToEngine(*m_link, packet);
}
