#pragma once

#include "sentfile.h"

#include <QHash>
#include <QVector>

namespace simulated {

/// Texts of datagrams and files that can occur on both sides of a comparison, each with a number.
class SentTable
{
public:
    struct Entry
    {
        QString text;    ///< the datagram as text
        QString subject; ///< equal for two entries of which one can be a changed version of the other
        QByteArray datagram;
    };

    /// The number of a datagram; the same bytes have the same number.
    int idOf(const QByteArray &datagram, const Message &message);
    int idOf(const SentFile &file);

    const Entry &entry(int id) const { return m_entries.at(id); }

private:
    int insert(const Entry &entry);

    QHash<QByteArray, int> m_datagramIds;
    QHash<QString, int> m_fileIds;
    QVector<Entry> m_entries;
};

/// What a module sent, in two sequences. Its two threads send independently of each other, so only the order
/// within each sequence is its own.
class SentSequence
{
public:
    enum Thread { Settings, Transfers };

    struct Item
    {
        int id;
        qint64 ns;
        int file; ///< index in files(), -1 for a datagram
    };

    explicit SentSequence(SentTable *table)
        : m_table(table)
    {}

    /// Returns the number of the datagram, or -1 for a packet of a file.
    int append(const QByteArray &datagram, qint64 ns);

    const QVector<Item> &items(Thread thread) const { return m_items[thread]; }
    const QVector<SentFile> &files() const { return m_files; }
    int endedFiles() const { return m_endedFiles; }

private:
    void appendPacket(const Message &message, qint64 ns);

    SentTable *m_table;
    QVector<Item> m_items[2];
    QVector<SentFile> m_files;
    bool m_isSending = false; // the last file
    int m_endedFiles = 0;
};

} // namespace simulated
