#pragma once

#include "fuzz/support/producttime.h"

#include <QtGlobal>

#include <atomic>

#include <semaphore.h>

class qconnectfirmware;

namespace fuzz {

/// Runs the thread of a transfer engine from stop to stop, so that an input always acts at the same points of
/// a transfer. The thread stops instead of pausing, while it waits for an answer, and when it reports
/// progress or a start. It holds no lock at a stop.
///
/// Call arrival() before any call of the engine.
class TransferStops : public WorkerTime
{
public:
    enum class Stop { None, Pause, Report, Wait };

    explicit TransferStops(qconnectfirmware *engine);
    /// The engine's thread must have ended.
    ~TransferStops() override;
    Q_DISABLE_COPY(TransferStops)

    /// Waits until the thread is at a stop or has ended; returns None if it has ended. If it does neither
    /// within 30 s, the process crashes, which is a finding.
    Stop arrival();
    /// Continues to the next stop. A current wait times out.
    void letGo();
    /// Continues without further stops. A current wait does not time out by itself.
    void leaveAlone();

    void pause() override { stopAt(Stop::Pause); }
    int wait(pthread_cond_t *condition, pthread_mutex_t *mutex) override;
    void signal(pthread_cond_t *condition) override;

private:
    void stopAt(Stop stop);

    qconnectfirmware *const m_engine;
    std::atomic<Stop> m_stop{Stop::None};
    std::atomic<bool> m_leftAlone{false};
    sem_t m_arrived;
    sem_t m_go;
    bool m_standing = false; // used only by the thread that calls arrival()

    // The current wait, guarded by its mutex. Every signalled condition is compared with m_condition.
    std::atomic<pthread_cond_t *> m_condition{nullptr};
    pthread_mutex_t *m_mutex = nullptr;
    bool m_answered = false;
    bool m_runOut = false;
};

} // namespace fuzz
