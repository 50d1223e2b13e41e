#pragma once

#include <QtGlobal>

/// Figures of this process from the kernel.
namespace soak {

/// Resident memory in KiB.
qint64 residentKiB();

/// The number of datagrams that the kernel dropped because a socket with that port at 127.20.30.1, or at any
/// address, was full.
quint64 droppedDatagrams(quint16 port);

} // namespace soak
