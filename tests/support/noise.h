#pragma once

#include <QByteArray>

namespace testsupport {

/// Pseudo-random bytes, the same for the same seed. The packets of a file with these bytes differ from each
/// other.
inline QByteArray noise(int size, quint32 seed = 1)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint32 state = seed;
    for (char &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = char(state >> 24);
    }
    return bytes;
}

} // namespace testsupport
