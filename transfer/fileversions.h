#pragma once

#include <QString>

namespace zelta {

/// A version is one number: major in the high 16 bits, minor in the low 16. The arithmetic wraps, because
/// both numbers come from files and from the network.
constexpr int versionWord(quint32 major, quint32 minor)
{
    return int((major << 16) + minor);
}

/// Reads the version of a firmware file. Any thread.
using FileVersion = int (*)(const QString &path);

/// Version of a sound-engine firmware file: a text such as "4810QN-abc1.05 - " within its first 100 bytes.
/// Returns -1 when the file cannot be read or contains no such text; a part that is not a number counts as 0.
int zeltaFirmwareVersion(const QString &path);

/// Version of a trigger-board firmware file: "TGFW", then minor and major as little-endian words.
/// Returns -1 when the file cannot be read or begins differently; missing bytes count as 0.
int triggerFirmwareVersion(const QString &path);

} // namespace zelta
