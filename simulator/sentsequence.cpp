#include "sentsequence.h"

#include "wire.h"

namespace simulated {

namespace {

bool isPacket(const Message &message)
{
    return message.kind == Message::Kind::TransferStart || message.kind == Message::Kind::TransferData ||
           message.kind == Message::Kind::TransferEnd;
}

QString subjectOf(const QByteArray &datagram, const Message &message)
{
    // Kind and number; the value is left out.
    quint32 number = 0;
    switch (message.kind) {
    case Message::Kind::Parameter: number = (quint32(message.msb) << 8) | message.lsb; break;
    case Message::Kind::ControlChange:
    case Message::Kind::NoteOn:
    case Message::Kind::NoteOff: number = message.msb; break;
    case Message::Kind::Led:
    case Message::Kind::TriggerCurve: number = message.number; break;
    case Message::Kind::Query: number = message.content; break;
    case Message::Kind::Unreadable: number = wordAt(datagram, 0); break;
    default: break;
    }
    return QStringLiteral("%1/%2").arg(int(message.kind)).arg(number);
}

} // namespace

int SentTable::idOf(const QByteArray &datagram, const Message &message)
{
    auto known = m_datagramIds.find(datagram);
    if (known == m_datagramIds.end()) {
        known = m_datagramIds.insert(datagram,
                                     insert({describe(message), subjectOf(datagram, message), datagram}));
    }
    return *known;
}

int SentTable::idOf(const SentFile &file)
{
    auto known = m_fileIds.find(file.title());
    if (known == m_fileIds.end())
        known = m_fileIds.insert(file.title(), insert({file.title(), file.subject(), {}}));
    return *known;
}

int SentTable::insert(const Entry &entry)
{
    m_entries.append(entry);
    return m_entries.size() - 1;
}

int SentSequence::append(const QByteArray &datagram, qint64 ns)
{
    const Message message = decode(datagram);
    if (isPacket(message)) {
        appendPacket(message, ns);
        return -1;
    }
    const int id = m_table->idOf(datagram, message);
    m_items[message.kind == Message::Kind::Query ? Transfers : Settings].append({id, ns, -1});
    return id;
}

void SentSequence::appendPacket(const Message &message, qint64 ns)
{
    const bool continues = m_isSending && message.kind != Message::Kind::TransferStart &&
                           m_files.constLast().content() == message.content;
    if (!continues) {
        m_files.append(SentFile(message));
        m_items[Transfers].append({m_table->idOf(m_files.constLast()), ns, m_files.size() - 1});
        m_isSending = true;
    }
    if (message.kind == Message::Kind::TransferData) {
        m_files.last().append(message);
    } else if (message.kind == Message::Kind::TransferEnd) {
        m_files.last().end(message.number);
        m_isSending = false;
        ++m_endedFiles;
    }
}

} // namespace simulated
