#pragma once

#include <QtGlobal>

/// Six bytes that are sent as they lie in memory. The kind is kept in host order and the two arguments in
/// big-endian order: the device reads the kind as two letters and the arguments as network words.
struct RAW_PACKET
{
    quint16 kind;
    quint16 firstBigEndian;
    quint16 secondBigEndian;
};
static_assert(sizeof(RAW_PACKET) == 6, "the record is the datagram");
