#include "streamsum.h"

namespace simulated {

namespace {

// The sender pauses for four seconds before a resend, so packets out of order before this time are only late.
constexpr qint64 resendPauseMs = 1000;

} // namespace

quint32 chunkSum(const QByteArray &chunk)
{
    quint32 sum = 0;
    for (int i = 0; i < chunk.size(); ++i)
        sum += i % 2 == 0 ? quint32(quint8(chunk.at(i))) << 8 : quint32(quint8(chunk.at(i)));
    return sum;
}

void StreamSum::requested(quint32 number)
{
    m_requested = number;
    m_maybeResumed = false;
    m_sinceRequest.start();
}

void StreamSum::beginRun(qint64 first, qint64 last)
{
    m_finished.append(m_run);
    m_run = {first, last};
    m_requested = -1;
    m_maybeResumed = false;
}

StreamSum::Place StreamSum::arrived(quint32 number, bool *resumed)
{
    *resumed = false;
    const qint64 n = number;
    if (m_maybeResumed && n == m_requested + 1) {
        // The requested packet and the one after it: the resend has started.
        beginRun(m_requested, n);
        *resumed = true;
        return Place::Next;
    }
    if (n == m_run.last + 1) {
        m_maybeResumed = false;
        m_run.last = n;
        return Place::Next;
    }
    if (n > m_run.last) {
        m_maybeResumed = false;
        m_run.last = n;
        return Place::Ahead;
    }
    if (m_requested >= 0 && n >= m_requested) {
        const bool paused = m_sinceRequest.elapsed() >= resendPauseMs;
        if (paused) {
            // A resend, even if the requested packet itself was lost again.
            beginRun(m_requested, n);
            *resumed = true;
            return n == m_run.first ? Place::Next : Place::Ahead;
        }
        if (n == m_requested)
            m_maybeResumed = true;
    }
    return Place::Repeat;
}

void StreamSum::appendChunk(const QByteArray &chunk)
{
    m_sums.append(m_sums.constLast() + chunkSum(chunk));
}

quint32 StreamSum::sumOf(const Run &run) const
{
    const qint64 known = m_sums.size() - 1;
    const qint64 end = qMin(run.last + 1, known);
    if (run.first >= end)
        return 0;
    return m_sums.at(int(end)) - m_sums.at(int(run.first));
}

bool StreamSum::matches(quint32 sum) const
{
    quint32 total = sumOf(m_run);
    for (const Run &run : m_finished)
        total += sumOf(run);
    if (total == sum)
        return true;
    // A resend of the last packet of the file has no packet after it.
    return m_maybeResumed && total + sumOf({m_requested, m_requested}) == sum;
}

} // namespace simulated
