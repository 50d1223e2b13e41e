#pragma once

#include <QtGlobal>

namespace testsupport {

/// Number of threads of this process now.
int threadCount();
/// Number of open descriptors of this process now.
int descriptorCount();
/// Number of open sockets among them.
int socketCount();
/// Bytes that wait in the receive buffers of UDP sockets with that port, in the network of this process. -1
/// when it cannot be told.
qint64 waitingBytes(quint16 port);
/// Bytes in use on the heap, or -1 where that cannot be said (sanitizers bring a heap of their own).
long long heapBytes();

} // namespace testsupport
