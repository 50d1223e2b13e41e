#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"
#include "link/timerslack.h"
#include "transfer/datapacket.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace {

constexpr int queryWaitMs = 20000;

constexpr int statusAborted = -2;

} // namespace

void qconnectfirmware::run()
{
    zelta::useMinimalTimerSlack();

    FirmwareDesc task;
    while (takeTask(task)) {
        if (!perform(task))
            return;
    }
    pushLogLine(QStringLiteral("--> task end"));
    writeLogToFile(QStringLiteral("/run/media/sda1/transfer_log.txt"));
}

// Takes the next task off the queue. Without one, or after an abort, the thread is told to leave; that is
// settled under the mutex, so that a task queued from now on knows that it has to start the thread again.
bool qconnectfirmware::takeTask(FirmwareDesc &task)
{
    const QMutexLocker locker(&m_taskMutex);
    m_leaving = m_abortRequested || m_tasks.isEmpty();
    if (m_leaving)
        return false;
    task = m_tasks.takeFirst();
    return true;
}

// Works off one task. Returns false when the thread has to leave at once.
bool qconnectfirmware::perform(const FirmwareDesc &task)
{
    const zelta::TaskTraits *traits = zelta::traitsOf(task.kind);
    if (!traits)
        return true;

    Versions versions;
    if (traits->fileVersion) {
        versions.file = traits->fileVersion(task.path);
        if (versions.file < 0)
            return true;
    }
    if (traits->query != 0) {
        if (!ask(traits->query, versions.device))
            return false;
        if (versions.device >= versions.file) {
            Q_EMIT transferDone();
            return true;
        }
    }
    if (!task.path.isEmpty() && !sendFile(task, *traits, versions))
        return true;

    if (m_abortRequested)
        m_transferStatus = statusAborted;
    Q_EMIT transferDone();
    return true;
}

// Sends a query and waits for a reply, whichever it is: replies are not matched against the query. Without
// one the value is 0. Returns false after an abort; the thread leaves then.
bool qconnectfirmware::ask(quint16 query, int &reply)
{
    const QMutexLocker locker(&m_taskMutex);
    m_lastReplyValue = 0;
    m_plugin->writeBinaryData(DATA_PACKET(query, 0));
    waitForAnswer(queryWaitMs);
    reply = m_lastReplyValue;
    m_leaving = m_abortRequested;
    return !m_leaving;
}

// Waits with m_taskMutex locked, releasing it meanwhile. Returns false after waitMs without an answer.
bool qconnectfirmware::waitForAnswer(int waitMs)
{
    const QDeadlineTimer deadline(waitMs);
    m_answered = false;
    while (!m_answered && !m_stopped) {
        if (!m_ackCondition.wait(&m_taskMutex, deadline))
            break;
    }
    return m_answered || m_stopped;
}
