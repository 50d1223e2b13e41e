#pragma once

#include <QtGlobal>

class QByteArray;
class SocketTransceiver;
struct RAW_PACKET;

namespace zelta {

// The two forms of a message to the sound engine. Both return the number of bytes sent, or -1: a failed send
// is neither reported nor repeated. GUI thread or transfer thread.

/// Sends all bytes as one datagram.
qint64 sendToEngine(SocketTransceiver &link, const QByteArray &bytes);
/// Sends the six bytes of the record as one datagram and writes one debug line.
qint64 sendToEngine(SocketTransceiver &link, const RAW_PACKET &packet);

} // namespace zelta
