#pragma once

#include <QtGlobal>

class QHostAddress;

namespace zelta {

/// Sends size bytes at data as one datagram to an IPv4 address and port, through a non-blocking UDP
/// descriptor. Returns the number of bytes sent, or -1 when the system refuses the datagram: no route, a full
/// send buffer, more bytes than a datagram holds. Never blocks and keeps no state. Any thread.
qint64 sendDatagram(int descriptor, const char *data, qint64 size, const QHostAddress &address, quint16 port);

} // namespace zelta
