#pragma once

#include <QByteArray>
#include <QString>

/// A packet of the file-transfer protocol, sent as one datagram: a kind tag, a content tag and further
/// fields, all big-endian. A value type; can be used in any thread.
///
/// setStart(), setSlot(), setSoundBankId() and setFileName() append, so the order of calls is the order of
/// the fields. setData() and setEnd() write at fixed positions of a packet that holds only its two tags.
class DATA_PACKET
{
public:
    DATA_PACKET(unsigned short kind, unsigned short tag);

    /// Appends the file size in bytes (its low 32 bits).
    void setStart(unsigned int size);
    /// Appends the low 16 bits of the slot number.
    void setSlot(unsigned int slot);
    /// Appends the low 16 bits of the bank number, as setSlot() does.
    void setSoundBankId(unsigned int id);
    /// Appends the name as UTF-8 and a zero byte.
    void setFileName(const QString &name);
    /// Completes a data packet: its number within the file, the chunk's length in 16-bit words, the chunk.
    /// The length of the chunk must be even.
    void setData(unsigned int number, const QByteArray &chunk);
    /// Completes an end packet with the checksum of the file.
    void setEnd(unsigned int checksum);

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

namespace zelta {

/// Sum of a chunk's big-endian 16-bit words, wrapping at 32 bits. A last single byte counts as a high byte.
quint32 chunkChecksum(const QByteArray &chunk);

} // namespace zelta
