#pragma once

#include <QtGlobal>

/// What the kernel knows of this process.
namespace soak {

/// Resident memory in KiB.
qint64 residentKiB();

/// Datagrams that the kernel dropped because a socket of 127.20.30.1 with that port, or any socket of the
/// module's port, was full.
quint64 droppedDatagrams(quint16 port);

} // namespace soak
