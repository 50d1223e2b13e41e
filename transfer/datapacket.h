#pragma once

#include <QByteArray>

/// A datagram of the file-transfer protocol.
class DATA_PACKET
{
public:
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};
