#pragma once

#include <QtGlobal>

namespace zelta {

/// Packs two ASCII letters into a 16-bit tag, as datagrams use it for the kinds of events, packets and
/// contents. The first letter is the high byte, so a big-endian tag reads as text in a network trace.
constexpr quint16 tag(char first, char second)
{
    return quint16((quint16(static_cast<unsigned char>(first)) << 8) | static_cast<unsigned char>(second));
}

} // namespace zelta
