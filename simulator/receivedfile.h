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
    QByteArray data;             ///< empty when stored, or no longer kept, or too large to be kept
    QString path;                ///< where it is stored, empty when it is not
    qint64 received = 0;         ///< bytes of the file that came
    quint32 packets = 0;         ///< data packets heard, repeated ones included
    quint32 repeatedPackets = 0; ///< of these, the ones that were there already
    quint32 gaps = 0;            ///< times that a number was missing
    quint32 resendRequests = 0;  ///< requests sent, those of failure modes included
    bool stored = true;          ///< false when writing failed
};

/// One readable line.
QString fileText(const ReceivedFile &file);

/// Takes the bytes of a file in their order, into memory or into a directory.
class FileSink
{
public:
    /// Larger files are checked and counted but not kept, unless there is a directory.
    static constexpr qint64 memoryLimit = 64 * 1024 * 1024;

    /// With a directory, writes to fileName inside it, under a name ending in .part until it is whole.
    /// Without one, keeps up to that many bytes, and no more than memoryLimit.
    FileSink(const QString &directory, const QString &fileName, qint64 keptBytes);

    void append(const QByteArray &bytes);

    /// Fills in data or path.
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
