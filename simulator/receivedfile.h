#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>

namespace simulated {

/// A file that the module sent.
struct ReceivedFile
{
    enum class Outcome { Whole, ChecksumError, Incomplete, Refused, Abandoned };

    QString content;  ///< "SB"
    int slot = -1;    ///< -1: none
    QString name;     ///< of imports
    quint32 size = 0; ///< as announced
    Outcome outcome = Outcome::Abandoned;
    quint16 status = 0;          ///< as acknowledged
    QByteArray data;             ///< empty when stored, dropped or too large
    QString path;                ///< of the stored file, or empty
    qint64 received = 0;         ///< bytes received
    quint32 packets = 0;         ///< data packets received, including repeated ones
    quint32 repeatedPackets = 0; ///< data packets received before
    quint32 gaps = 0;            ///< gaps in the packet numbers
    quint32 resendRequests = 0;  ///< requests sent, including those of failure modes
    bool stored = true;          ///< false when writing failed
};

/// The file as one line of text.
QString fileText(const ReceivedFile &file);

/// Collects the bytes of a file in order, in memory or in a directory.
class FileSink
{
public:
    /// Larger files are not kept in memory.
    static constexpr qint64 memoryLimit = 64 * 1024 * 1024;

    /// With a directory, writes to fileName in it, with .part appended until the file is whole. Without one,
    /// keeps up to keptBytes and at most memoryLimit in memory.
    FileSink(const QString &directory, const QString &fileName, qint64 keptBytes);

    void append(const QByteArray &bytes);

    /// Sets data, or path and stored, of file.
    void finish(bool whole, ReceivedFile *file);

private:
    QString m_path;
    std::unique_ptr<QFile> m_file;
    QByteArray m_data;
    qint64 m_keptBytes;
    bool m_overflow = false;
    bool m_failed = false;
};

} // namespace simulated
