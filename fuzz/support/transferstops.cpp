#include "fuzz/support/transferstops.h"

#include "fuzz/support/patience.h"
#include "transfer/qconnectfirmware.h"

#include <cerrno>

namespace fuzz {

TransferStops::TransferStops(qconnectfirmware *engine)
    : m_engine(engine)
{
    ::sem_init(&m_arrived, 0, 0);
    ::sem_init(&m_go, 0, 0);
    setWorkerTime(this);

    const auto report = [this] {
        stopAt(Stop::Report);
    };
    QObject::connect(engine, &qconnectfirmware::zeltaFirmwareUpdateStarted, report);
    QObject::connect(engine, &qconnectfirmware::triggerFirmwareUpdateStarted, report);
    QObject::connect(engine, &qconnectfirmware::soundTransferProgress, report);
    QObject::connect(engine, &qconnectfirmware::triggerTransferProgress, report);
    QObject::connect(engine, &qconnectfirmware::btfwTransferProgress, report);
    QObject::connect(engine, &qconnectfirmware::importSlotProgress, report);
    const auto over = [this] {
        m_stop = Stop::None;
        ::sem_post(&m_arrived);
    };
    QObject::connect(engine, &QThread::finished, engine, over, Qt::DirectConnection);
}

TransferStops::~TransferStops()
{
    setWorkerTime(nullptr);
    ::sem_destroy(&m_arrived);
    ::sem_destroy(&m_go);
}

TransferStops::Stop TransferStops::arrival()
{
    if (m_standing)
        return m_stop;
    if (!m_engine->isRunning()) {
        // finished() may not have been handled yet.
        m_engine->QThread::wait();
        while (::sem_trywait(&m_arrived) == 0) {
        }
        return Stop::None;
    }
    waitFor(&m_arrived, "the transfer thread reaches its next stop");
    const Stop stop = m_stop;
    m_standing = stop != Stop::None;
    if (!m_standing)
        m_engine->QThread::wait();
    return stop;
}

void TransferStops::letGo()
{
    if (!m_standing)
        return;
    m_standing = false;
    if (m_stop != Stop::Wait) {
        ::sem_post(&m_go);
        return;
    }
    ::pthread_mutex_lock(m_mutex);
    if (m_condition) {
        m_runOut = true;
        signalReally(m_condition);
    }
    ::pthread_mutex_unlock(m_mutex);
}

void TransferStops::leaveAlone()
{
    m_leftAlone = true;
    if (m_stop != Stop::Wait)
        letGo();
}

void TransferStops::stopAt(Stop stop)
{
    if (m_leftAlone)
        return;
    m_stop = stop;
    ::sem_post(&m_arrived);
    waitFor(&m_go, "the transfer thread may continue");
}

int TransferStops::wait(pthread_cond_t *condition, pthread_mutex_t *mutex)
{
    if (m_leftAlone)
        return ETIMEDOUT;
    m_condition = condition;
    m_mutex = mutex;
    m_answered = false;
    m_runOut = false;
    m_stop = Stop::Wait;
    ::sem_post(&m_arrived);
    while (!m_answered && !m_runOut)
        ::pthread_cond_wait(condition, mutex);
    m_condition = nullptr;
    return m_answered ? 0 : ETIMEDOUT;
}

void TransferStops::signal(pthread_cond_t *condition)
{
    if (condition == m_condition) {
        m_answered = true;
        // The thread may reach its next stop before arrival() is called.
        m_standing = false;
    }
    signalReally(condition);
}

} // namespace fuzz
