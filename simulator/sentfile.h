#pragma once

#include "message.h"

#include <QHash>

namespace simulated {

/// The content of a file transfer as the packets of the module show it, without its timing: packets that were
/// sent again count once.
class SentFile
{
public:
    /// start: the start packet, or the first packet of a transfer whose start packet is missing.
    explicit SentFile(const Message &start);

    quint16 content() const { return m_content; }
    /// The start packet as one line of text.
    QString title() const { return m_title; }
    /// Content and slot, which name what the file replaces.
    QString subject() const;

    /// A data packet.
    void append(const Message &data);
    void end(quint32 checksum);
    bool isEnded() const { return m_ended; }

    /// One line for each kind of difference. A recorded file that is not whole, because the engine refused it
    /// or the recording began or ended in it, is compared as far as both have it.
    QStringList differences(const SentFile &recorded) const;

private:
    bool isWhole() const;

    quint16 m_content = 0;
    int m_slot = -1;
    quint32 m_size = 0;
    bool m_hasStart = false;
    QString m_title;

    QHash<quint32, quint64> m_digests; // by packet number
    qint64 m_bytes = 0;                // of different packets
    bool m_hasRepeats = false;
    bool m_ended = false;
    quint32 m_checksum = 0;
};

} // namespace simulated
