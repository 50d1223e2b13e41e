#pragma once

#include "transfer/firmwaredesc.h"
#include "transfer/taskkinds.h"

#include <QMutex>
#include <QVector>
#include <QWaitCondition>

#include <atomic>
#include <functional>
#include <optional>

namespace zelta {

/// The state that the GUI thread and the transfer thread share: the queue, and the answers of the engine.
///
/// Every method takes the locks that it needs; there is no other access to the data. A method that takes both
/// mutexes takes the task mutex first. No method emits a signal.
class TransferState
{
public:
    // GUI thread.

    /// Appends a task, withdraws an abort, and calls start with the task mutex locked. leaving is true when
    /// the thread is about to end: it takes no more locks, and must have ended before it can start again.
    /// Does nothing after stop().
    void append(const FirmwareDesc &task, const std::function<void(bool leaving)> &start);
    /// Aborts, ends the current wait, and ignores later tasks.
    void stop();
    /// Stores the reply to a query and ends the current wait.
    void storeReply(int value);
    /// Stores the status of an end acknowledgement, 0 for success, and ends the current wait.
    void storeEnd(quint16 status);
    /// Requests the data again from this packet on. Does not end a wait; no answer to data does.
    void requestRetransmit(quint32 from, bool counted);
    /// Requests the end of the data; the end packet is still sent.
    void requestStop();
    /// Aborts the transfer with this status.
    void abort(quint16 status);

    // Transfer thread.

    /// Takes the next task from the queue. Returns false if the queue is empty, and after an abort. The
    /// thread must then end without another call.
    bool takeTask(FirmwareDesc &task);
    /// Sends a query and waits up to 20 s. Returns the value of the reply, whichever query it answers,
    /// or 0 if there is none. Returns nothing after an abort. The thread must then end without another call.
    std::optional<int> ask(const std::function<void()> &send);
    /// Clears the requests of the engine for the previous file.
    void beginFile();
    /// Packet number of a pending resend request.
    std::optional<quint32> retransmitFrom();
    void clearRetransmit();
    bool isStopRequested() const { return m_stopRequested; }
    bool isAbortRequested() const { return m_abortRequested; }
    /// Aborts the transfer because its file cannot be read.
    void abort() { m_abortRequested = true; }
    /// Sends the end packet and waits up to waitMs for its acknowledgement. Returns false after a time-out.
    /// After an abort it returns nothing and sends no end packet.
    std::optional<bool> finish(const std::function<void()> &send, int waitMs);
    FileEnd fileEnd();
    /// True after stop().
    bool isStopped();
    void noteUnopenedFile() { m_transferStatus = statusNotOpened; }
    void noteEndOfTask();

    // Any thread.

    /// Calls action with the task mutex locked.
    void whileLocked(const std::function<void()> &action);

private:
    static constexpr int statusNotOpened = -1;
    static constexpr int statusAborted = -2;

    bool waitForAnswer(int waitMs);
    void endWait();

    // Locked for every send that an answer may follow, so that no answer is stored before the wait begins.
    QMutex m_taskMutex;
    QMutex m_retransmitMutex;
    QWaitCondition m_ackCondition;

    // Guarded by m_taskMutex.
    QVector<FirmwareDesc> m_tasks;
    bool m_answered = false; ///< the current wait is over
    bool m_leaving = false;  ///< the thread takes no more tasks and no more locks
    bool m_stopped = false;
    int m_lastReplyValue = 0;
    bool m_endFailed = false;
    quint16 m_endStatus = 0;

    // Guarded by m_retransmitMutex.
    bool m_retransmitRequested = false;
    quint32 m_retransmitFrom = 0;
    quint32 m_retransmitCount = 0;

    // Read without a lock.
    std::atomic<bool> m_abortRequested{false};
    std::atomic<bool> m_stopRequested{false};
    std::atomic<int> m_transferStatus{0}; ///< stored, but not read
};

} // namespace zelta
