#include "transfer/transferstate.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace zelta {

namespace {

constexpr int queryWaitMs = 20000;

} // namespace

void TransferState::append(const FirmwareDesc &task, const std::function<void(bool leaving)> &start)
{
    const QMutexLocker locker(&m_taskMutex);
    if (m_stopped)
        return;
    m_tasks.append(task);
    m_transferStatus = 0;
    m_abortRequested = false;
    start(m_leaving);
    m_leaving = false;
}

void TransferState::stop()
{
    const QMutexLocker locker(&m_taskMutex);
    m_stopped = true;
    m_abortRequested = true;
    m_ackCondition.wakeOne();
}

void TransferState::storeReply(int value)
{
    const QMutexLocker locker(&m_taskMutex);
    m_lastReplyValue = value;
    endWait();
}

void TransferState::storeEnd(quint16 status)
{
    const QMutexLocker locker(&m_taskMutex);
    m_endStatus = status;
    if (status != 0)
        m_endFailed = true;
    endWait();
}

void TransferState::requestRetransmit(quint32 from, bool counted)
{
    const QMutexLocker taskLocker(&m_taskMutex);
    const QMutexLocker locker(&m_retransmitMutex);
    m_retransmitRequested = true;
    m_retransmitFrom = from;
    if (counted)
        ++m_retransmitCount;
}

void TransferState::requestStop()
{
    const QMutexLocker taskLocker(&m_taskMutex);
    const QMutexLocker locker(&m_retransmitMutex);
    m_stopRequested = true;
}

void TransferState::abort(quint16 status)
{
    const QMutexLocker locker(&m_taskMutex);
    m_endStatus = status;
    m_abortRequested = true;
}

// The decision to end the thread is made with the mutex locked, so that append() knows whether to start it
// again.
bool TransferState::takeTask(FirmwareDesc &task)
{
    const QMutexLocker locker(&m_taskMutex);
    m_leaving = m_abortRequested || m_tasks.isEmpty();
    if (m_leaving)
        return false;
    task = m_tasks.takeFirst();
    return true;
}

std::optional<int> TransferState::ask(const std::function<void()> &send)
{
    const QMutexLocker locker(&m_taskMutex);
    m_lastReplyValue = 0;
    send();
    waitForAnswer(queryWaitMs);
    m_leaving = m_abortRequested;
    if (m_leaving)
        return std::nullopt;
    return m_lastReplyValue;
}

void TransferState::beginFile()
{
    const QMutexLocker locker(&m_retransmitMutex);
    m_retransmitCount = 0;
    m_retransmitRequested = false;
    m_stopRequested = false;
}

std::optional<quint32> TransferState::retransmitFrom()
{
    const QMutexLocker locker(&m_retransmitMutex);
    return m_retransmitRequested ? std::make_optional(m_retransmitFrom) : std::nullopt;
}

void TransferState::clearRetransmit()
{
    const QMutexLocker locker(&m_retransmitMutex);
    m_retransmitRequested = false;
}

std::optional<bool> TransferState::finish(const std::function<void()> &send, int waitMs)
{
    const QMutexLocker locker(&m_taskMutex);
    if (m_abortRequested)
        return std::nullopt;
    m_endFailed = false;
    m_endStatus = 0;
    send();
    if (waitForAnswer(waitMs))
        return true;
    m_endFailed = true;
    return false;
}

FileEnd TransferState::fileEnd()
{
    FileEnd end{};
    {
        const QMutexLocker locker(&m_taskMutex);
        end.failed = m_endFailed;
        end.status = m_endStatus;
    }
    const QMutexLocker locker(&m_retransmitMutex);
    end.retransmits = m_retransmitCount;
    return end;
}

bool TransferState::isStopped()
{
    const QMutexLocker locker(&m_taskMutex);
    return m_stopped;
}

void TransferState::noteEndOfTask()
{
    if (m_abortRequested)
        m_transferStatus = statusAborted;
}

void TransferState::whileLocked(const std::function<void()> &action)
{
    const QMutexLocker locker(&m_taskMutex);
    action();
}

// Called with m_taskMutex locked, which the wait releases. Returns false after waitMs without an answer.
bool TransferState::waitForAnswer(int waitMs)
{
    const QDeadlineTimer deadline(waitMs);
    m_answered = false;
    while (!m_answered && !m_stopped) {
        if (!m_ackCondition.wait(&m_taskMutex, deadline))
            break;
    }
    return m_answered || m_stopped;
}

void TransferState::endWait()
{
    m_answered = true;
    m_ackCondition.wakeOne();
}

} // namespace zelta
