#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QVector>

namespace simulated {

/// Wrapping 32-bit sum of the big-endian 16-bit words of a padded chunk.
quint32 chunkSum(const QByteArray &chunk);

/// Checksum of a stream with resends.
///
/// The sender adds every chunk that it sends: a chunk that is sent again counts twice, and so does one that
/// was lost. The receiver therefore reconstructs what was sent. A stream is a sequence of runs of consecutive
/// packets, and each run after the first begins at a packet that was requested again. When the file is
/// complete, the sum of all runs is known, regardless of which packets were lost.
class StreamSum
{
public:
    /// A resend from packet number was requested.
    void requested(quint32 number);

    enum class Place { Next, Ahead, Repeat };

    /// Packet number arrived. Returns its place in the stream, and sets resumed when the sender has started a
    /// resend.
    Place arrived(quint32 number, bool *resumed);

    /// The next chunk of the file, in order.
    void appendChunk(const QByteArray &chunk);

    /// True if sum is the checksum of this stream. The file must be whole.
    bool matches(quint32 sum) const;

private:
    struct Run
    {
        qint64 first;
        qint64 last;
    };

    void beginRun(qint64 first, qint64 last);
    quint32 sumOf(const Run &run) const;

    QVector<quint32> m_sums{0}; // m_sums[n]: of the first n chunks
    QVector<Run> m_finished;
    Run m_run{0, -1};
    qint64 m_requested = -1;
    bool m_maybeResumed = false;
    QElapsedTimer m_sinceRequest;
};

} // namespace simulated
