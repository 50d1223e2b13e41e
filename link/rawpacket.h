#pragma once

#include <QtGlobal>

/// A record of six bytes, sent in the byte order that it has in memory. The kind is in host byte order, the
/// two arguments are in big-endian order.
struct RAW_PACKET
{
    quint16 kind;
    quint16 firstBigEndian;
    quint16 secondBigEndian;
};
static_assert(sizeof(RAW_PACKET) == 6, "the record is the datagram");
