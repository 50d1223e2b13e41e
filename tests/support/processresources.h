#pragma once

#include <QtGlobal>

namespace testsupport {

/// The number of threads of this process.
int threadCount();
/// The number of open descriptors of this process.
int descriptorCount();
/// The number of open sockets among them.
int socketCount();
/// The number of bytes in the receive buffers of all UDP sockets with this port in this network namespace, or
/// -1 if unknown.
qint64 waitingBytes(quint16 port);
/// The number of bytes allocated on the heap, or -1 if unknown, for example because a sanitizer replaces the
/// heap.
long long heapBytes();

} // namespace testsupport
