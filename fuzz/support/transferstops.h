#pragma once

#include "fuzz/support/producttime.h"

#include <QtGlobal>

#include <atomic>

#include <semaphore.h>

class qconnectfirmware;

namespace fuzz {

/// Leads the thread of a transfer engine from stop to stop, so that one input always meets the same transfer
/// at the same places. The thread stops where it would pause, where it waits for an answer, and where it
/// reports progress or a start; it holds no lock at a stop.
///
/// arrival() has to be called before anything is done to the engine.
class TransferStops : public WorkerTime
{
public:
    enum class Stop { None, Pause, Report, Wait };

    explicit TransferStops(qconnectfirmware *engine);
    /// The engine's thread has ended by then.
    ~TransferStops() override;
    Q_DISABLE_COPY(TransferStops)

    /// Waits until the thread stands at a stop, or has come to its end, which gives None. A thread that does
    /// neither for half a minute is a finding.
    Stop arrival();
    /// Lets the thread go on to its next stop. A wait runs out.
    void letGo();
    /// Lets the thread go on without any more stops; but a wait that it stands in does not run out by itself.
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
    bool m_standing = false; // as the thread that leads sees it, which is also the one that answers

    // The wait that the thread stands in, guarded by its mutex; any condition is compared with it.
    std::atomic<pthread_cond_t *> m_condition{nullptr};
    pthread_mutex_t *m_mutex = nullptr;
    bool m_answered = false;
    bool m_runOut = false;
};

} // namespace fuzz
