#pragma once

#include <QString>

namespace zelta {

/// A version is one word: major in the high 16 bits, minor in the low 16. Both numbers come from files and
/// from the network, so the arithmetic wraps.
constexpr int versionWord(quint32 major, quint32 minor)
{
    return int((major << 16) + minor);
}

/// Reads the version that a file carries. Any thread.
using FileVersion = int (*)(const QString &path);

/// Version of a sound-engine firmware file: a text such as "4810QN-abc1.05 - " within its first 100 bytes.
/// Returns -1 when the file cannot be read or carries no such text; a part that is no number counts as 0.
int zeltaFirmwareVersion(const QString &path);

/// Version of a trigger-board firmware file: "TGFW", then minor and major as little-endian words.
/// Returns -1 when the file cannot be read or begins otherwise; bytes that are missing count as 0.
int triggerFirmwareVersion(const QString &path);

} // namespace zelta
