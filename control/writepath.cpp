#include "control/qconnectqmlplugin.h"

#include "link/logging.h"
#include "link/midipacket.h"
#include "link/rawpacket.h"
#include "link/sockettransceiver.h"
#include "transfer/datapacket.h"

#include <QByteArray>

qint64 QConnectQmlPlugin::writeMidiData(const MIDI_PACKET &packet)
{
    return writeBinaryData(packet.bytes());
}

qint64 QConnectQmlPlugin::writeBinaryData(const DATA_PACKET &packet)
{
    return writeBinaryData(packet.bytes());
}

qint64 QConnectQmlPlugin::writeBinaryData(const QByteArray &bytes)
{
    const zelta::EngineAddress &engine = m_link->engine();
    return m_link->writeToSocket(bytes, engine.host, engine.port);
}

qint64 QConnectQmlPlugin::writeRawData(const RAW_PACKET &packet)
{
    const auto *bytes = reinterpret_cast<const char *>(&packet);
    // Read as text the record ends at its first zero byte, or after its six bytes when it has none.
    const QByteArray text(bytes, int(qstrnlen(bytes, sizeof(packet))));
    qCDebug(lcControl) << "writeRawData: " << text.constData();
    const zelta::EngineAddress &engine = m_link->engine();
    return m_link->writeToSocket(bytes, sizeof(packet), engine.host, engine.port);
}
