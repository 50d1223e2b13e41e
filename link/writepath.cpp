#include "link/writepath.h"

#include "link/logging.h"
#include "link/rawpacket.h"
#include "link/sockettransceiver.h"

#include <QByteArray>

namespace zelta {

qint64 sendToEngine(SocketTransceiver &link, const QByteArray &bytes)
{
    const EngineAddress &engine = link.engine();
    return link.writeToSocket(bytes, engine.host, engine.port);
}

qint64 sendToEngine(SocketTransceiver &link, const RAW_PACKET &packet)
{
    const auto *bytes = reinterpret_cast<const char *>(&packet);
    // The line shows the record as text, which ends at the first zero byte or after the sixth byte.
    const QByteArray text(bytes, int(qstrnlen(bytes, sizeof(packet))));
    qCDebug(lcLink) << "writeRawData: " << text.constData();
    const EngineAddress &engine = link.engine();
    return link.writeToSocket(bytes, sizeof(packet), engine.host, engine.port);
}

} // namespace zelta
