#pragma once

#include <QtGlobal>

namespace zelta {

/// Packs two ASCII letters into the 16-bit tag that the sound engine uses for event kinds, packet kinds and
/// content: the first letter is the high byte, so that a big-endian word reads as text in a network trace.
constexpr quint16 eventKind(char first, char second)
{
    return quint16((quint16(static_cast<unsigned char>(first)) << 8) | static_cast<unsigned char>(second));
}

} // namespace zelta
