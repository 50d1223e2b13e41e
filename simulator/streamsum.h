#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QVector>

namespace simulated {

/// 32-bit wrapping sum of a padded chunk's big-endian words.
quint32 chunkSum(const QByteArray &chunk);

/// The checksum of a stream in which parts may have been sent again.
///
/// The sender adds every chunk that it sends, so chunks sent again count again, and chunks that got lost on
/// the way count as well. The receiver therefore follows where the sender was: a stream is a row of runs of
/// consecutive packets, each run after the first beginning where a resend was asked for. When the file is
/// whole, the sum of all runs is known, whatever was lost in between.
class StreamSum
{
public:
    /// The sender was asked to go back to packet number.
    void requested(quint32 number);

    enum class Place { Next, Ahead, Repeat };

    /// Packet number arrived. Says where it stands in the sender's stream; resumed is set when the sender
    /// has just gone back.
    Place arrived(quint32 number, bool *resumed);

    /// The next chunk of the file, in order.
    void appendChunk(const QByteArray &chunk);

    /// True if sum is what a sender of this stream would give. The file has to be whole.
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
